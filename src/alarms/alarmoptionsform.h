// The options of the alarm clock.
#pragma once

#include <QDialog>

#include <vector>

class QCheckBox;
class QSlider;
class QVBoxLayout;
struct IntSetting;

class AlarmOptionsForm : public QDialog
{
    Q_OBJECT

public:
    explicit AlarmOptionsForm(QWidget* owner); // shows the settings
    void accept() override;                    // writes them
    void done(int result) override;            // ends the tune

private:
    void AddSound(QVBoxLayout& column);
    void AddTray(QVBoxLayout& column);
    bool SetSessionStart() const;
    void btnListen_Click();

    struct Tick
    {
        const IntSetting* setting;
        QCheckBox* box;
    };
    std::vector<Tick> m_ticks;
    QCheckBox* m_chkSession = nullptr;
    QSlider* m_sldVolume = nullptr;
    QString m_played;
};
