// Binary channels. NK::IChannel reads and NK::OChannel writes 16-, 32- and 64-bit integers, Bool
// (one byte, 0 or 1), byte blocks, Guids, UniStrings (a UInt32 count of UTF-16 units, then the
// units) and 8-bit strings (a UInt32 byte count, then the bytes in the default code page,
// Windows-1252; see NKCodePage.hpp). Every number is little-endian.
//
// Every call returns an ErrCode, NoError (0) on success. The first failure sticks: the channel
// keeps that error (GetStatus), and every later call returns it at once and reads or writes
// nothing. A failed read leaves its output untouched. Counts read from the data are checked
// against the bytes that remain before anything is allocated, so a damaged or hostile stream
// yields ErrChannelEnd, never a huge allocation or undefined behaviour.
#pragma once

#include "NK/NKGuid.hpp"
#include "NK/NKTypes.hpp"
#include "NK/NKUniString.hpp"

#include <string>
#include <vector>

namespace NK {

class IChannel {
public:
    IChannel() = default;
    IChannel(const IChannel&) = delete;
    IChannel& operator=(const IChannel&) = delete;
    virtual ~IChannel() = default;

    ErrCode GetStatus() const noexcept { return status; }
    // Bytes left to read; 0 once the channel has failed.
    UInt64 GetRemaining() const noexcept { return status == NoError ? RemainingBytes() : 0; }

    ErrCode Read(Int16& value);
    ErrCode Read(UInt16& value);
    ErrCode Read(Int32& value);
    ErrCode Read(UInt32& value);
    ErrCode Read(Int64& value);
    ErrCode Read(UInt64& value);
    // A byte other than 0 or 1 is ErrChannelFormat.
    ErrCode Read(bool& value);
    ErrCode Read(Guid& value);
    ErrCode Read(UniString& value);
    // An 8-bit string, decoded from the default code page.
    ErrCode Read8BitString(UniString& value);
    // An 8-bit string as its raw bytes, not decoded.
    ErrCode Read8BitBytes(std::string& value);

    // Exactly `size` bytes into `data`, or nothing. (Should the file behind a channel fail in
    // the middle of the block, the part already read is in `data`; the error says so.)
    ErrCode ReadBlock(void* data, UIndex size);
    // Exactly `size` bytes into `block` (resized to fit), or nothing.
    ErrCode ReadBlock(std::vector<Byte>& block, UInt64 size);
    // Passes over `size` bytes.
    ErrCode Skip(UInt64 size);

protected:
    // Implementations move exactly `size` bytes, or nothing and return the error. They are
    // called only while the channel is sound and only for sizes within RemainingBytes.
    virtual ErrCode ReadRaw(void* data, UIndex size) = 0;
    virtual ErrCode SkipRaw(UInt64 size) = 0;
    virtual UInt64 RemainingBytes() const noexcept = 0;
    // Makes the channel fail with `error` (kept if it already failed); returns the kept error.
    ErrCode Fail(ErrCode error) noexcept;

private:
    // Checks the state and the remaining size, then reads; fails the channel on error.
    ErrCode Take(void* data, UIndex size);
    template <typename T>
    ErrCode ReadInteger(T& value);
    // Reads a UInt32 count of units of `unitSize` bytes and checks that they can be there.
    ErrCode ReadCount(UInt32& count, UIndex unitSize);

    ErrCode status = NoError;
};

class OChannel {
public:
    OChannel() = default;
    OChannel(const OChannel&) = delete;
    OChannel& operator=(const OChannel&) = delete;
    virtual ~OChannel() = default;

    ErrCode GetStatus() const noexcept { return status; }

    ErrCode Write(Int16 value);
    ErrCode Write(UInt16 value);
    ErrCode Write(Int32 value);
    ErrCode Write(UInt32 value);
    ErrCode Write(Int64 value);
    ErrCode Write(UInt64 value);
    ErrCode Write(bool value);
    ErrCode Write(const Guid& value);
    ErrCode Write(const UniString& value);
    // A pointer would silently convert to bool: say UniString or Write8BitString instead.
    template <typename T>
    ErrCode Write(const T* value) = delete;
    // An 8-bit string in the default code page; characters it cannot hold are written as '?'.
    ErrCode Write8BitString(const UniString& value);
    // An 8-bit string from raw bytes, written as they are.
    ErrCode Write8BitBytes(const std::string& value);
    ErrCode WriteBlock(const void* data, UIndex size);
    ErrCode WriteBlock(const std::vector<Byte>& block) { return WriteBlock(block.data(), block.size()); }

protected:
    // Implementations write all `size` bytes or fail; called only while the channel is sound.
    virtual ErrCode WriteRaw(const void* data, UIndex size) = 0;
    ErrCode Fail(ErrCode error) noexcept;

private:
    ErrCode Put(const void* data, UIndex size);
    template <typename T>
    ErrCode WriteInteger(T value);
    ErrCode WriteCounted(const void* data, UIndex count, UIndex unitSize);

    ErrCode status = NoError;
};

}  // namespace NK
