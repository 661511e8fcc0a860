#pragma once
#include <cstdint>

// What stands between the summed channels and the device. Volumes of up to +18 dB on several
// streams can sum far past full scale: every sample is held within [-1, 1] (a NaN, which a
// broken file could bring, becomes silence), and the samples that had to be held are counted.
namespace OutputGuard {
// Returns how many of the samples were beyond full scale.
int Clip(float* samples, int count);
}

// For the life of the object the calling thread treats denormal floats as zero, so that a
// fade or a glide that ends near silence does not slow the callback down a hundredfold. The
// previous mode comes back at the end (the virtual clock runs the callback on the UI thread).
class DenormalsAreZero
{
public:
    DenormalsAreZero();
    ~DenormalsAreZero();
    DenormalsAreZero(const DenormalsAreZero&) = delete;
    DenormalsAreZero& operator=(const DenormalsAreZero&) = delete;

private:
    std::uint32_t m_saved = 0;
};
