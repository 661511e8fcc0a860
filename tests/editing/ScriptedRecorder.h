#pragma once
#include "kernelapi/iCart.h"
#include "kernelapi/iCartRecorder.h"
#include "kernelapi/iFamily.h"
#include <QStringList>
#include <QTimer>

// A recorder that does what the contract says without any audio: it keeps every call by name
// ("Record", "Load MUS0001", "LoadBlank NEW"...), changes its states and raises their events.
// Record raises its state change on the next pass of the event loop, and a Pause that comes
// before that pass arms the recorder: it goes from stopped to paused without running.
class ScriptedRecorder : public iCartRecorder
{
public:
    qint32 RecordingState() const override { return m_recording; }
    qint32 LoadState() const override { return m_load; }
    QString DisplayTime() const override { return m_time; }
    QString DisplayTitle() const override { return m_title; }
    QString DisplayName() const override { return m_name; }

    void Load(const std::shared_ptr<iCart>& cart) override
    {
        calls << QStringLiteral("Load ") + (cart ? cart->ID() : QStringLiteral("nothing"));
        ShowTape(Loaded, cart->ID(), cart->Title());
    }
    void LoadBlank(const std::shared_ptr<iFamily>& family) override
    {
        calls << QStringLiteral("LoadBlank ") + family->ID();
        ShowTape(Proposed, family->ID(), QString());
    }
    void Eject() override
    {
        calls << QStringLiteral("Eject");
        ShowTape(Free, QString(), QString());
    }
    void Record() override
    {
        calls << QStringLiteral("Record");
        m_recording = Recording;
        m_armedBy = ++m_generation;
        QTimer::singleShot(0, this, [this, generation = m_generation] {
            if (m_armedBy == generation)
                Q_EMIT RecordingStateChanged(Recording);
        });
    }
    void Stop() override { Change(QStringLiteral("Stop"), Stopped); }
    void Pause() override { Change(QStringLiteral("Pause"), Paused); }
    void Resume() override { Change(QStringLiteral("Resume"), Recording); }

    // What a running recorder says as time passes.
    void Tick(const QString& time)
    {
        m_time = time;
        Q_EMIT DisplayTimeChanged(time);
    }
    // Puts the recorder in a state as if it had got there by itself, and says so.
    void Become(qint32 recording)
    {
        m_recording = recording;
        Q_EMIT RecordingStateChanged(recording);
    }
    void ShowTape(qint32 load, const QString& name, const QString& title)
    {
        m_load = load;
        m_name = name;
        m_title = title;
        Q_EMIT LoadStateChanged(load);
        Q_EMIT DisplayNameChanged(name);
        Q_EMIT DisplayTitleChanged(title);
    }

    QStringList calls;

private:
    void Change(const QString& call, qint32 state)
    {
        calls << call;
        m_armedBy = 0;
        m_recording = state;
        Q_EMIT RecordingStateChanged(state);
    }

    qint32 m_recording = Stopped;
    qint32 m_load = Free;
    QString m_time;
    QString m_title;
    QString m_name;
    int m_generation = 0;
    int m_armedBy = 0;
};
