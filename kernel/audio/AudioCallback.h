#pragma once

// What a device calls from its real-time thread for every period.
class AudioCallback
{
public:
    virtual ~AudioCallback() = default;
    // input: interleaved frames of inputChannels (null when the device records nothing);
    // output: interleaved stereo frames, to be filled completely. Must not block, allocate
    // or do I/O.
    virtual void Process(const float* input, int inputChannels, float* output, int frames) = 0;
    // Called before Process when the device reports audio lost since the last period: output
    // it could not play in time, or input it dropped or filled in. Same rules as Process.
    virtual void Gap(bool output, bool input) = 0;
};
