#pragma once

// The present peak levels of a channel or a stream, in dB of full scale (0 dBFS is the
// loudest sample); -110 means no signal. While valid is false the engine has nothing measured to
// give (the channel is stopped or has not delivered a buffer yet) and the levels are silence.
struct AudioLevels
{
    float left = -110.0f;
    float right = -110.0f;
    bool valid = false;
};
