// Channels over bytes in memory. MemoryIChannel reads either its own copy of a byte vector or,
// built from a pointer and a size, bytes it borrows (they must outlive the channel).
// MemoryOChannel appends to a byte vector it owns; a failed allocation is ErrOutOfMemory.
#pragma once

#include "NK/NKChannel.hpp"

#include <vector>

namespace NK {

class MemoryIChannel : public IChannel {
public:
    explicit MemoryIChannel(std::vector<Byte> bytes) noexcept;
    // Borrows the bytes.
    MemoryIChannel(const Byte* data, UIndex size) noexcept;

    UIndex GetPosition() const noexcept { return position; }
    UIndex GetSize() const noexcept { return size; }

protected:
    ErrCode ReadRaw(void* data, UIndex count) override;
    ErrCode SkipRaw(UInt64 count) override;
    UInt64 RemainingBytes() const noexcept override { return size - position; }

private:
    std::vector<Byte> owned;
    const Byte* data = nullptr;
    UIndex size = 0;
    UIndex position = 0;
};

class MemoryOChannel : public OChannel {
public:
    MemoryOChannel() = default;

    const std::vector<Byte>& GetBytes() const noexcept { return bytes; }
    UIndex GetSize() const noexcept { return bytes.size(); }
    // Hands the bytes over and leaves the channel empty (its status is kept).
    std::vector<Byte> TakeBytes() noexcept { return std::move(bytes); }

protected:
    ErrCode WriteRaw(const void* data, UIndex count) override;

private:
    std::vector<Byte> bytes;
};

}  // namespace NK
