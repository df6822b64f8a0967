// What the fuzz targets share: a check that stops the run with a message (libFuzzer then keeps
// the input as a finding), and the bytes a writer puts on a memory channel.
#pragma once

#include "NK/NKMemoryChannel.hpp"

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace Fuzz {

inline void Check(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "fuzz property broken: %s\n", what);
        std::abort();
    }
}

template <typename WriteTo>
std::vector<NK::Byte> Written(WriteTo write)
{
    NK::MemoryOChannel channel;
    write(channel);
    Check(channel.GetStatus() == NK::NoError, "writing to memory succeeds");
    return channel.GetBytes();
}

}  // namespace Fuzz
