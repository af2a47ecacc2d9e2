// The day view's window: one note and the commands for writing it.
#pragma once

#include <QDialog>
#include <QRect>

class FontCommand;
class QLabel;
class RichTextBox;

inline constexpr QSize SmallestZoomBox(400, 260); // all of its foot fits

class ZoomBoxForm : public QDialog
{
    Q_OBJECT

public:
    // place is in pixels. Returns Accepted for Ok and the close box. Cancel sets bCancel; Esc only rejects.
    ZoomBoxForm(QWidget* owner, const QString& heading, const QByteArray& rtf, const QRect& place,
                FontCommand& fontCommand);

    static QRect StoredPlace(const QWidget& heading); // by default below this heading of the calendar
    void StorePlace() const;

    bool bCancel = false;
    RichTextBox& tbZoom() const { return *m_tbZoom; }

Q_SIGNALS:
    void SignOfLife(); // a key, a change, a button

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* MakeFrame(const QString& heading);
    QLayout* MakeFoot();
    void ShowZoom(int percent);
    void Form_Resize();
    void btnOk_Click();
    void btnCancel_Click();
    void btnFonts_Click();

    FontCommand& m_fontCommand;
    RichTextBox* m_tbZoom = nullptr;
    QLabel* m_lblZoom = nullptr; // tells the zoom
};
