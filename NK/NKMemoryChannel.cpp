#include "NK/NKMemoryChannel.hpp"

#include <cstring>
#include <new>

namespace NK {

MemoryIChannel::MemoryIChannel(std::vector<Byte> bytes) noexcept
    : owned(std::move(bytes)), data(owned.data()), size(owned.size())
{
}

MemoryIChannel::MemoryIChannel(const Byte* data, UIndex size) noexcept : data(data), size(data == nullptr ? 0 : size) {}

ErrCode MemoryIChannel::ReadRaw(void* target, UIndex count)
{
    std::memcpy(target, data + position, count);
    position += count;
    return NoError;
}

ErrCode MemoryIChannel::SkipRaw(UInt64 count)
{
    position += static_cast<UIndex>(count);
    return NoError;
}

ErrCode MemoryOChannel::WriteRaw(const void* data, UIndex count)
{
    try {
        const Byte* first = static_cast<const Byte*>(data);
        bytes.insert(bytes.end(), first, first + count);
    } catch (const std::bad_alloc&) {
        return ErrOutOfMemory;
    } catch (const std::length_error&) {
        return ErrOutOfMemory;
    }
    return NoError;
}

}  // namespace NK
