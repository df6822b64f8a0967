// Channels over files. The constructor opens the file; a file that cannot be opened leaves the
// channel failed with ErrChannelIO, so every call on it returns that error. FileOChannel
// creates or truncates its file; Close flushes and reports a failure to do so (the destructor
// closes too, but cannot report). Reads never go past the size the file had when opened.
#pragma once

#include "NK/NKChannel.hpp"
#include "NK/NKFileLocation.hpp"

#include <cstdio>

namespace NK {

class FileIChannel : public IChannel {
public:
    explicit FileIChannel(const FileLocation& location);
    ~FileIChannel() override;

    bool IsOpen() const noexcept { return file != nullptr; }
    UInt64 GetPosition() const noexcept { return position; }
    void Close() noexcept;

protected:
    ErrCode ReadRaw(void* data, UIndex count) override;
    ErrCode SkipRaw(UInt64 count) override;
    UInt64 RemainingBytes() const noexcept override { return file == nullptr ? 0 : size - position; }

private:
    std::FILE* file = nullptr;
    UInt64 size = 0;
    UInt64 position = 0;
};

class FileOChannel : public OChannel {
public:
    explicit FileOChannel(const FileLocation& location);
    ~FileOChannel() override;

    bool IsOpen() const noexcept { return file != nullptr; }
    // Flushes and closes; returns the channel's status (ErrChannelIO when the data could not be
    // flushed). A write after Close fails the channel with ErrNotOpen.
    ErrCode Close();

protected:
    ErrCode WriteRaw(const void* data, UIndex count) override;

private:
    std::FILE* file = nullptr;
};

}  // namespace NK
