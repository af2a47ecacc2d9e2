// How large the calendar's picture on the desktop is, and whether the exit makes it anew.
#pragma once

#include <QDialog>

#include <array>

class QBoxLayout;
class QCheckBox;
class QRadioButton;

class WallpaperForm : public QDialog
{
    Q_OBJECT

public:
    explicit WallpaperForm(QWidget* owner); // shows the settings
    void accept() override;                 // writes them; the wallpaper stays as it is

private:
    void MakeOptions(QBoxLayout& options);
    void ShowSettings();
    int ChosenSize() const;

    std::array<QRadioButton*, 3> m_opSetting{}; // index: the size
    QCheckBox* m_chkAutoload = nullptr;
};
