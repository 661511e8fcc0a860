#pragma once
#include "kernelapi/AudioLevels.h"
#include <QObject>
#include <QString>
#include <memory>

class iCartPlayer;
class iCartRecorder;

// One stream of a channel, with the player or recorder that drives it.
class iStream : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~iStream() override = default;

    virtual QString Name() const = 0;
    // The present levels of this stream alone.
    virtual AudioLevels GetLevels() const = 0;
    // The player of a playing stream; null on a recording channel.
    virtual std::shared_ptr<iCartPlayer> CartPlayer() const = 0;
    // The recorder of a recording stream; null on a playing channel.
    virtual std::shared_ptr<iCartRecorder> CartRecorder() const = 0;
};
