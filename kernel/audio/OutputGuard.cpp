#include "kernel/audio/OutputGuard.h"
#include <cmath>
#if defined(__SSE__) || defined(__x86_64__)
#include <xmmintrin.h>
#define KORVANE_HAS_MXCSR 1
#endif

int OutputGuard::Clip(float* samples, int count)
{
    int held = 0;
    for (int i = 0; i < count; ++i) {
        const float sample = samples[i];
        if (std::fabs(sample) <= 1.0f)
            continue;
        ++held;
        samples[i] = sample > 1.0f ? 1.0f : (sample < -1.0f ? -1.0f : 0.0f);
    }
    return held;
}

#ifdef KORVANE_HAS_MXCSR
namespace {
constexpr std::uint32_t FlushToZero = 0x8000;
constexpr std::uint32_t DenormalsZero = 0x0040;
}

DenormalsAreZero::DenormalsAreZero() : m_saved(_mm_getcsr())
{
    _mm_setcsr(m_saved | FlushToZero | DenormalsZero);
}

DenormalsAreZero::~DenormalsAreZero()
{
    _mm_setcsr(m_saved);
}
#else
DenormalsAreZero::DenormalsAreZero() = default;
DenormalsAreZero::~DenormalsAreZero() = default;
#endif
