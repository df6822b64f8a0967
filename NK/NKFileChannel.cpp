#include "NK/NKFileChannel.hpp"

#include <sys/stat.h>

namespace NK {

FileIChannel::FileIChannel(const FileLocation& location)
{
    if (location.IsEmpty()) {
        Fail(ErrChannelIO);
        return;
    }
    file = std::fopen(location.GetPath().c_str(), "rb");
    struct stat info {};
    if (file == nullptr || ::fstat(::fileno(file), &info) != 0 || !S_ISREG(info.st_mode)) {
        Close();
        Fail(ErrChannelIO);
        return;
    }
    size = static_cast<UInt64>(info.st_size);
}

FileIChannel::~FileIChannel()
{
    Close();
}

void FileIChannel::Close() noexcept
{
    if (file != nullptr)
        std::fclose(file);
    // A closed channel has nothing left to read: further reads end with ErrChannelEnd.
    file = nullptr;
}

ErrCode FileIChannel::ReadRaw(void* data, UIndex count)
{
    const UIndex read = std::fread(data, 1, count, file);
    position += read;
    if (read != count)
        return std::feof(file) ? ErrChannelEnd : ErrChannelIO;
    return NoError;
}

ErrCode FileIChannel::SkipRaw(UInt64 count)
{
    if (::fseeko(file, static_cast<off_t>(count), SEEK_CUR) != 0)
        return ErrChannelIO;
    position += count;
    return NoError;
}

FileOChannel::FileOChannel(const FileLocation& location)
{
    if (!location.IsEmpty())
        file = std::fopen(location.GetPath().c_str(), "wb");
    if (file == nullptr)
        Fail(ErrChannelIO);
}

FileOChannel::~FileOChannel()
{
    Close();
}

ErrCode FileOChannel::Close()
{
    if (file != nullptr && std::fclose(file) != 0)
        Fail(ErrChannelIO);
    file = nullptr;
    return GetStatus();
}

ErrCode FileOChannel::WriteRaw(const void* data, UIndex count)
{
    if (file == nullptr)
        return ErrNotOpen;
    if (std::fwrite(data, 1, count, file) != count)
        return ErrChannelIO;
    return NoError;
}

}  // namespace NK
