// The font, size, colour and styles of an empty note when typing begins.
#pragma once

#include <QDialog>

#include <array>

class ORLCombo;
class QCheckBox;

class InitFontForm : public QDialog
{
    Q_OBJECT

public:
    explicit InitFontForm(QWidget* owner = nullptr); // shows the settings
    void accept() override;                          // writes them

private:
    void ShowSettings();
    void ShowDefaults(); // what new notes have without settings

    ORLCombo* m_orlcmbFontname;
    ORLCombo* m_orlcmbFontsize;
    ORLCombo* m_orlcmbFontcolor;
    std::array<QCheckBox*, 4> m_styles;
};
