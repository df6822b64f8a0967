#include "NK/NKChannel.hpp"

#include "NK/NKCodePage.hpp"

#include <cstring>
#include <limits>
#include <new>
#include <type_traits>

namespace NK {

namespace {

template <typename T>
void StoreLittleEndian(T value, Byte* bytes) noexcept
{
    using U = std::make_unsigned_t<T>;
    U bits = static_cast<U>(value);
    for (UIndex i = 0; i < sizeof(T); ++i) {
        bytes[i] = static_cast<Byte>(bits & 0xFFu);
        bits = static_cast<U>(bits >> 8);
    }
}

template <typename T>
T LoadLittleEndian(const Byte* bytes) noexcept
{
    using U = std::make_unsigned_t<T>;
    U bits = 0;
    for (UIndex i = sizeof(T); i-- > 0;)
        bits = static_cast<U>((bits << 8) | bytes[i]);
    return static_cast<T>(bits);
}

constexpr UIndex GuidSize = 16;

void StoreGuid(const Guid& guid, Byte* bytes) noexcept
{
    // The 128 bits as two little-endian 64-bit halves, high half first.
    StoreLittleEndian(guid.GetHigh(), bytes);
    StoreLittleEndian(guid.GetLow(), bytes + 8);
}

Guid LoadGuid(const Byte* bytes) noexcept
{
    return Guid::FromNumber(LoadLittleEndian<UInt64>(bytes), LoadLittleEndian<UInt64>(bytes + 8));
}

}  // namespace

// ---- IChannel ---------------------------------------------------------------------------------

ErrCode IChannel::Fail(ErrCode error) noexcept
{
    if (status == NoError)
        status = error;
    return status;
}

ErrCode IChannel::Take(void* data, UIndex size)
{
    if (status != NoError)
        return status;
    if (size > RemainingBytes())
        return Fail(ErrChannelEnd);
    if (size == 0)
        return NoError;
    const ErrCode error = ReadRaw(data, size);
    return error == NoError ? NoError : Fail(error);
}

template <typename T>
ErrCode IChannel::ReadInteger(T& value)
{
    Byte bytes[sizeof(T)];
    const ErrCode error = Take(bytes, sizeof(T));
    if (error == NoError)
        value = LoadLittleEndian<T>(bytes);
    return error;
}

ErrCode IChannel::Read(Int16& value) { return ReadInteger(value); }
ErrCode IChannel::Read(UInt16& value) { return ReadInteger(value); }
ErrCode IChannel::Read(Int32& value) { return ReadInteger(value); }
ErrCode IChannel::Read(UInt32& value) { return ReadInteger(value); }
ErrCode IChannel::Read(Int64& value) { return ReadInteger(value); }
ErrCode IChannel::Read(UInt64& value) { return ReadInteger(value); }

ErrCode IChannel::Read(bool& value)
{
    Byte byte = 0;
    if (const ErrCode error = Take(&byte, 1); error != NoError)
        return error;
    if (byte > 1)
        return Fail(ErrChannelFormat);
    value = byte == 1;
    return NoError;
}

ErrCode IChannel::Read(Guid& value)
{
    Byte bytes[GuidSize];
    const ErrCode error = Take(bytes, GuidSize);
    if (error == NoError)
        value = LoadGuid(bytes);
    return error;
}

ErrCode IChannel::ReadCount(UInt32& count, UIndex unitSize)
{
    UInt32 stored = 0;
    if (const ErrCode error = Read(stored); error != NoError)
        return error;
    if (static_cast<UInt64>(stored) * unitSize > RemainingBytes())
        return Fail(ErrChannelEnd);
    count = stored;
    return NoError;
}

ErrCode IChannel::Read(UniString& value)
{
    UInt32 count = 0;
    if (const ErrCode error = ReadCount(count, 2); error != NoError)
        return error;
    try {
        std::vector<Byte> bytes(static_cast<UIndex>(count) * 2);
        if (const ErrCode error = Take(bytes.data(), bytes.size()); error != NoError)
            return error;
        std::u16string units(count, u'\0');
        for (UIndex i = 0; i < count; ++i)
            units[i] = static_cast<char16_t>(LoadLittleEndian<UInt16>(bytes.data() + 2 * i));
        value = UniString(std::move(units));
    } catch (const std::bad_alloc&) {
        return Fail(ErrOutOfMemory);
    }
    return NoError;
}

ErrCode IChannel::Read8BitBytes(std::string& value)
{
    UInt32 count = 0;
    if (const ErrCode error = ReadCount(count, 1); error != NoError)
        return error;
    try {
        std::string bytes(count, '\0');
        if (const ErrCode error = Take(bytes.data(), bytes.size()); error != NoError)
            return error;
        value = std::move(bytes);
    } catch (const std::bad_alloc&) {
        return Fail(ErrOutOfMemory);
    }
    return NoError;
}

ErrCode IChannel::Read8BitString(UniString& value)
{
    std::string bytes;
    if (const ErrCode error = Read8BitBytes(bytes); error != NoError)
        return error;
    try {
        value = DecodeDefaultCodePage(bytes);
    } catch (const std::bad_alloc&) {
        return Fail(ErrOutOfMemory);
    }
    return NoError;
}

ErrCode IChannel::ReadBlock(void* data, UIndex size)
{
    if (data == nullptr && size > 0)
        return status != NoError ? status : ErrInvalidArgument;
    return Take(data, size);
}

ErrCode IChannel::ReadBlock(std::vector<Byte>& block, UInt64 size)
{
    if (status != NoError)
        return status;
    if (size > RemainingBytes())
        return Fail(ErrChannelEnd);
    try {
        std::vector<Byte> bytes(static_cast<UIndex>(size));
        if (const ErrCode error = Take(bytes.data(), bytes.size()); error != NoError)
            return error;
        block = std::move(bytes);
    } catch (const std::bad_alloc&) {
        return Fail(ErrOutOfMemory);
    }
    return NoError;
}

ErrCode IChannel::Skip(UInt64 size)
{
    if (status != NoError)
        return status;
    if (size > RemainingBytes())
        return Fail(ErrChannelEnd);
    if (size == 0)
        return NoError;
    const ErrCode error = SkipRaw(size);
    return error == NoError ? NoError : Fail(error);
}

// ---- OChannel ---------------------------------------------------------------------------------

ErrCode OChannel::Fail(ErrCode error) noexcept
{
    if (status == NoError)
        status = error;
    return status;
}

ErrCode OChannel::Put(const void* data, UIndex size)
{
    if (status != NoError)
        return status;
    if (size == 0)
        return NoError;
    const ErrCode error = WriteRaw(data, size);
    return error == NoError ? NoError : Fail(error);
}

template <typename T>
ErrCode OChannel::WriteInteger(T value)
{
    Byte bytes[sizeof(T)];
    StoreLittleEndian(value, bytes);
    return Put(bytes, sizeof(T));
}

ErrCode OChannel::Write(Int16 value) { return WriteInteger(value); }
ErrCode OChannel::Write(UInt16 value) { return WriteInteger(value); }
ErrCode OChannel::Write(Int32 value) { return WriteInteger(value); }
ErrCode OChannel::Write(UInt32 value) { return WriteInteger(value); }
ErrCode OChannel::Write(Int64 value) { return WriteInteger(value); }
ErrCode OChannel::Write(UInt64 value) { return WriteInteger(value); }

ErrCode OChannel::Write(bool value)
{
    const Byte byte = value ? 1 : 0;
    return Put(&byte, 1);
}

ErrCode OChannel::Write(const Guid& value)
{
    Byte bytes[GuidSize];
    StoreGuid(value, bytes);
    return Put(bytes, GuidSize);
}

ErrCode OChannel::WriteCounted(const void* data, UIndex count, UIndex unitSize)
{
    if (status != NoError)
        return status;
    // A count that does not fit the UInt32 field cannot be read back: refuse it and write
    // nothing; the channel stays sound, as for any argument the caller got wrong.
    if (count > std::numeric_limits<UInt32>::max())
        return ErrInvalidArgument;
    // Count and content go out in one piece, so a memory channel never holds half a string.
    try {
        std::vector<Byte> bytes(4 + count * unitSize);
        StoreLittleEndian(static_cast<UInt32>(count), bytes.data());
        if (unitSize == 2) {
            const char16_t* units = static_cast<const char16_t*>(data);
            for (UIndex i = 0; i < count; ++i)
                StoreLittleEndian(static_cast<UInt16>(units[i]), bytes.data() + 4 + 2 * i);
        } else if (count > 0) {
            std::memcpy(bytes.data() + 4, data, count);
        }
        return Put(bytes.data(), bytes.size());
    } catch (const std::bad_alloc&) {
        return Fail(ErrOutOfMemory);
    }
}

ErrCode OChannel::Write(const UniString& value)
{
    return WriteCounted(value.GetUtf16().data(), value.GetLength(), 2);
}

ErrCode OChannel::Write8BitBytes(const std::string& value)
{
    return WriteCounted(value.data(), value.size(), 1);
}

ErrCode OChannel::Write8BitString(const UniString& value)
{
    if (status != NoError)
        return status;
    try {
        return Write8BitBytes(EncodeDefaultCodePage(value));
    } catch (const std::bad_alloc&) {
        return Fail(ErrOutOfMemory);
    }
}

ErrCode OChannel::WriteBlock(const void* data, UIndex size)
{
    if (data == nullptr && size > 0)
        return status != NoError ? status : ErrInvalidArgument;
    return Put(data, size);
}

}  // namespace NK
