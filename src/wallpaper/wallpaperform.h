// The size of the calendar's wallpaper, and whether the exit renews it.
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
    void accept() override;                 // writes them; leaves the wallpaper

private:
    void MakeOptions(QBoxLayout& options);
    void ShowSettings();
    int ChosenSize() const;

    std::array<QRadioButton*, 3> m_opSetting{}; // by size
    QCheckBox* m_chkAutoload = nullptr;
};
