// Fixed-width integer names, error codes and index constants shared by every layer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

namespace NK {

using Int8 = std::int8_t;
using UInt8 = std::uint8_t;
using Int16 = std::int16_t;
using UInt16 = std::uint16_t;
using Int32 = std::int32_t;
using UInt32 = std::uint32_t;
using Int64 = std::int64_t;
using UInt64 = std::uint64_t;
using UIndex = std::size_t;
using Byte = unsigned char;

inline constexpr UIndex MaxUIndex = std::numeric_limits<UIndex>::max();

// Error codes returned by persistence and channel operations. 0 is success.
using ErrCode = Int32;
inline constexpr ErrCode NoError = 0;
inline constexpr ErrCode ErrOutOfMemory = -108;           // memory could not be had
inline constexpr ErrCode ErrNullChannelOrElement = -7001;  // null channel or element
inline constexpr ErrCode ErrMissingElement = -7003;        // element missing, misnamed or an unknown value
inline constexpr ErrCode ErrChannelEnd = -7101;            // a read went past the end of the data
inline constexpr ErrCode ErrChannelIO = -7102;             // the file behind a channel failed
inline constexpr ErrCode ErrChannelFormat = -7103;         // bytes that do not form the value (bad text, bad count)
inline constexpr ErrCode ErrForeignFrame = -7104;          // a class frame of another class identity
inline constexpr ErrCode ErrFrameVersion = -7105;          // a class frame of a newer, unknown version
inline constexpr ErrCode ErrNotOpen = -7106;               // a preference key, file or module that is not open
inline constexpr ErrCode ErrInvalidArgument = -7107;       // an argument the operation does not accept (bad path, bad root key)
inline constexpr ErrCode ErrModuleLoad = -7108;            // a module could not be loaded
inline constexpr ErrCode ErrSymbolNotFound = -7109;        // a loaded module does not export the name
inline constexpr ErrCode ErrFileSystem = -7110;            // a folder or file could not be made, renamed or removed
inline constexpr ErrCode ErrParse = -7111;                 // a text that is not well-formed JSON

}  // namespace NK
