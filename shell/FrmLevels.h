#pragma once
#include "shell/Form.h"

class IFChannelMonitor;
class IFVumeters;
class QPushButton;

// "Levels": the meter row of every channel and the channel monitor, for watching the audio
// engine from the menu.
class FrmLevels : public Form
{
    Q_OBJECT
public:
    FrmLevels();

    IFVumeters* Vumeters() const { return m_vumeters; }
    IFChannelMonitor* Monitor() const { return m_monitor; }

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    IFVumeters* m_vumeters;
    IFChannelMonitor* m_monitor;
    QPushButton* CmdExit;
};
