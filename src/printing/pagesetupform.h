// Margins and header of the printed page. Margins are stored as typed.
#pragma once

#include "platform/controls/fontdialog.h"

#include <QDialog>

#include <array>

class OneLineBox;

class PageSetupForm : public QDialog
{
    Q_OBJECT

public:
    explicit PageSetupForm(QWidget* owner = nullptr); // shows the settings
    void accept() override;                           // writes them

private:
    QWidget* MakeHeaderFrame();
    QWidget* MakeMarginFrame();
    void ShowSettings();
    void btnFonts_Click();
    void ShowHeaderFont();
    void WriteHeader() const;

    FontChoice m_headerFont; // of tbHeader; the name as chosen
    OneLineBox* m_tbHeader = nullptr;
    std::array<OneLineBox*, 4> m_margins{}; // left, top, right, bottom
};
