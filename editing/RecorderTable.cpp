#include "editing/RecorderTable.h"
#include "kernelapi/iCartRecorder.h"

namespace {
constexpr RecorderTable::Look Looks[] = {
    {"Stop", false, false, 0xffc0c0c0},
    {"Recording", true, false, 0xffc08080},
    {"Paused", true, true, 0xffc0c0c0},
};
constexpr const char* LoadPictures[] = {"Free", "Proposed", "Loaded"};
}

const char* RecorderTable::LoadPicture(qint32 loadState)
{
    return loadState >= iCartRecorder::Free && loadState <= iCartRecorder::Loaded ? LoadPictures[loadState] : nullptr;
}

const RecorderTable::Look* RecorderTable::RecordingLook(qint32 recordingState)
{
    return recordingState >= iCartRecorder::Stopped && recordingState <= iCartRecorder::Paused ? &Looks[recordingState]
                                                                                                : nullptr;
}

QList<RecorderTable::Command> RecorderTable::Actions(Button button, qint32 recordingState)
{
    const bool stopped = recordingState == iCartRecorder::Stopped;
    const bool running = recordingState == iCartRecorder::Recording;
    const bool paused = recordingState == iCartRecorder::Paused;
    if (button == Button::Rec) {
        if (stopped)
            return {Command::Record};
        return running || paused ? QList<Command>{Command::Stop} : QList<Command>{};
    }
    if (stopped)
        return {Command::Record, Command::Pause};
    if (running)
        return {Command::Pause};
    return paused ? QList<Command>{Command::Resume} : QList<Command>{};
}
