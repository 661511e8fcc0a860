#pragma once

struct EngineEvent;

// Who hears about the engine on the UI thread: the events of its voices, and a tick after
// every drain of the engine's queues (every few ms of device time), to move displays along.
class EngineListener
{
public:
    virtual ~EngineListener() = default;
    virtual void OnEngineEvent(const EngineEvent& event) = 0;
    virtual void OnEngineTick() = 0;
};
