#include "wallpaper/wallpaperform.h"

#include "platform/controls/dialogcolumn.h"
#include "platform/controls/named.h"
#include "platform/controls/okcancel.h"
#include "platform/desktop/centeronscreen.h"
#include "platform/profile/profile.h"
#include "platform/runtime/errortail.h"
#include "settings/settings.h"
#include "wallpaper/calendarpicture.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {
constexpr std::array Captions{"Normal (Current Window Size)", "Full Screen (Stretched Edge-to-Edge)",
                              "Maxmimzed (Maximized Window Size)"};
} // namespace

WallpaperForm::WallpaperForm(QWidget* owner) : QDialog(owner)
{
    setObjectName(u"WallpaperForm"_s);
    setWindowTitle(u"Customize Wallpaper"_s);
    auto* column = DialogColumn(*this);
    MakeOptions(AddPart(*column, u"Wallpaper Options"_s, DialogPart::Kind::Whole));
    column->addWidget(MakeOkCancel(*this));
    ErrorTail{" in WallpaperForm, Form_Load"_L1}([this] { ShowSettings(); });
    CenterOnScreen(*this);
}

void WallpaperForm::MakeOptions(QBoxLayout& options)
{
    QBoxLayout& sizes = AddPart(options, u"Wallpaper Setting"_s);
    for (std::size_t size = 0; size < Captions.size(); ++size) {
        m_opSetting[size] = new QRadioButton(QString::fromLatin1(Captions[size]));
        m_opSetting[size]->setObjectName(u"opSetting(%1)"_s.arg(size));
        sizes.addWidget(m_opSetting[size]);
    }
    m_chkAutoload =
        Named(new QCheckBox(u"Check to update wallpaper automatically when program exits"_s), "chkAutoload");
    AddPart(options, u"Automatic Update"_s).addWidget(m_chkAutoload);
}

// An unknown size checks nothing.
void WallpaperForm::ShowSettings()
{
    const int size = Read(settings::WallpaperSize);
    if (size >= 0 && size < int(m_opSetting.size())) m_opSetting[std::size_t(size)]->setChecked(true);
    m_chkAutoload->setChecked(Read(settings::WallpaperAutoupdate) != 0);
}

int WallpaperForm::ChosenSize() const
{
    using namespace calendarpicture;
    for (const int size : {Normal, Stretched}) {
        if (m_opSetting[std::size_t(size)]->isChecked()) return size;
    }
    return Maximized;
}

void WallpaperForm::accept()
{
    ErrorTail{" in WallpaperForm, btnOk_Click"_L1}([this] {
        const ProfileBatch oneReplacement(settings::PlannerIni.toString());
        Write(settings::WallpaperSize, ChosenSize());
        Write(settings::WallpaperAutoupdate, m_chkAutoload->isChecked() ? 1 : 0);
    });
    QDialog::accept();
}
