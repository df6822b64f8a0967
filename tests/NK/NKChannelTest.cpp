#include "NK/NKCodePage.hpp"
#include "NK/NKFileChannel.hpp"
#include "NK/NKMemoryChannel.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>

namespace {

using NK::Byte;
using Bytes = std::vector<Byte>;

// One value of every kind the channels carry, extremes included.
struct Sample {
    NK::Int16 i16 = std::numeric_limits<NK::Int16>::min();
    NK::UInt16 u16 = 0xBEEF;
    NK::Int32 i32 = -123456789;
    NK::UInt32 u32 = 0xFFFFFFFFu;
    NK::Int64 i64 = std::numeric_limits<NK::Int64>::min() + 7;
    NK::UInt64 u64 = 0x0123456789ABCDEFull;
    bool flag = true;
    NK::Guid id = NK::Guid::FromNumber(0x1122334455667788ull, 0x99AABBCCDDEEFF00ull);
    NK::UniString text = u"Gr\u00FC\u00DFe \U0001F600 \u20AC";
    NK::UniString empty;
    NK::UniString legacy = u"caf\u00E9 \u20AC5";
    Bytes block {0x00, 0xFF, 0x10, 0x7F};

    void WriteTo(NK::OChannel& out) const
    {
        for (NK::ErrCode error : {out.Write(i16), out.Write(u16), out.Write(i32), out.Write(u32), out.Write(i64), out.Write(u64),
                                  out.Write(flag), out.Write(id), out.Write(text), out.Write(empty), out.Write8BitString(legacy),
                                  out.Write(static_cast<NK::UInt32>(block.size())), out.WriteBlock(block)})
            EXPECT_EQ(error, NK::NoError);
    }

    // Reads into s and returns the first error.
    static NK::ErrCode ReadFrom(NK::IChannel& in, Sample& s)
    {
        NK::UInt32 blockSize = 0;
        for (NK::ErrCode error : {in.Read(s.i16), in.Read(s.u16), in.Read(s.i32), in.Read(s.u32), in.Read(s.i64), in.Read(s.u64),
                                  in.Read(s.flag), in.Read(s.id), in.Read(s.text), in.Read(s.empty), in.Read8BitString(s.legacy),
                                  in.Read(blockSize), in.ReadBlock(s.block, blockSize)})
            if (error != NK::NoError)
                return error;
        return NK::NoError;
    }

    bool operator==(const Sample&) const = default;
};

// Every field differs from a written sample, to see what a read touched.
const Sample blank {1, 2, 3, 4, 5, 6, false, NK::NullGuid, "x", "y", "z", {9}};

NK::FileLocation TempFile(const char* name)
{
    return NK::FileLocation(::testing::TempDir() + "nk_channel_" + name);
}

TEST(ChannelTest, IntegersAreLittleEndianAndEightBitStringsUseTheCodePage)
{
    NK::MemoryOChannel out;
    out.Write(NK::Int16(-2));
    out.Write(NK::UInt32(0x01020304u));
    out.Write(true);
    out.Write(NK::UniString(u"A\u20AC"));
    out.Write8BitString(NK::UniString(u"\u00E9\u20AC"));
    EXPECT_EQ(out.GetBytes(), (Bytes {0xFE, 0xFF, 0x04, 0x03, 0x02, 0x01, 0x01, 0x02, 0, 0, 0, 0x41, 0x00, 0xAC, 0x20, 0x02, 0, 0, 0,
                                      0xE9, 0x80}));
}

TEST(ChannelTest, EveryKindRoundTripsAndEveryTruncationIsAnErrorThatSticks)
{
    const Sample written;
    NK::MemoryOChannel memoryOut;
    written.WriteTo(memoryOut);
    const NK::FileLocation file = TempFile("roundtrip.bin");
    {
        NK::FileOChannel out(file);
        written.WriteTo(out);
        EXPECT_EQ(out.Close(), NK::NoError);
    }
    const Bytes bytes = memoryOut.GetBytes();
    for (NK::UIndex length = bytes.size() + 1; length-- > 0;) {  // the whole file first, as the file channel wrote it
        const Bytes prefix(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
        if (length < bytes.size())
            std::ofstream(file.GetPath(), std::ios::binary | std::ios::trunc)
                .write(reinterpret_cast<const char*>(prefix.data()), static_cast<std::streamsize>(length));
        NK::MemoryIChannel memory(prefix);
        NK::FileIChannel disk(file);
        for (NK::IChannel* in : {static_cast<NK::IChannel*>(&memory), static_cast<NK::IChannel*>(&disk)}) {
            SCOPED_TRACE(testing::Message() << "length " << length << (in == &memory ? " memory" : " file"));
            Sample read = blank;
            const NK::ErrCode expected = length == bytes.size() ? NK::NoError : NK::ErrChannelEnd;
            EXPECT_EQ(Sample::ReadFrom(*in, read), expected);
            EXPECT_EQ(in->GetStatus(), expected);
            EXPECT_EQ(in->GetRemaining(), 0u);
            if (expected == NK::NoError) {
                EXPECT_EQ(read, written);
                continue;
            }
            NK::Int16 untouched = 77;  // a failed channel stays failed
            EXPECT_EQ(in->Read(untouched), NK::ErrChannelEnd);
            EXPECT_EQ(untouched, 77);
        }
    }
}

TEST(ChannelTest, CountsBeyondTheDataBadBoolsAndClosedOrMissingFilesFailAndLeaveTheValue)
{
    // A count that promises more than is there, and one that would be an absurd allocation.
    for (const Bytes& bytes : {Bytes {5, 0, 0, 0, 'a', 0, 'b', 0}, Bytes {0xFF, 0xFF, 0xFF, 0xFF, 'x'}}) {
        NK::MemoryIChannel forUnicode(bytes), for8Bit(bytes), forBlock(bytes);
        NK::UniString text("kept"), legacy("kept");
        Bytes block {1};
        EXPECT_EQ(forUnicode.Read(text), NK::ErrChannelEnd);
        EXPECT_EQ(for8Bit.Read8BitString(legacy), NK::ErrChannelEnd);
        EXPECT_EQ(forBlock.ReadBlock(block, std::numeric_limits<NK::UInt64>::max()), NK::ErrChannelEnd);
        EXPECT_EQ(text + legacy, NK::UniString("keptkept"));
        EXPECT_EQ(block, Bytes {1});
    }
    NK::MemoryIChannel in(Bytes {1, 0, 2, 1, 0, 0});
    bool one = false, zero = true, kept = true;
    EXPECT_EQ(in.Read(one), NK::NoError);
    EXPECT_EQ(in.Read(zero), NK::NoError);
    EXPECT_EQ(in.Read(kept), NK::ErrChannelFormat);
    EXPECT_TRUE(one && !zero && kept);
    EXPECT_EQ(in.Skip(1), NK::ErrChannelFormat);  // the failure sticks

    const NK::FileLocation file = TempFile("closed.bin");
    NK::FileOChannel out(file);
    EXPECT_EQ(out.Write(NK::Int32(1)), NK::NoError);
    EXPECT_EQ(out.Close(), NK::NoError);
    EXPECT_EQ(out.Write(NK::UniString("later")), NK::ErrNotOpen);
    EXPECT_EQ(NK::FileIChannel(file).GetRemaining(), 4u);
    NK::Int16 value = 5;
    EXPECT_EQ(NK::FileIChannel(TempFile("does-not-exist.bin")).Read(value), NK::ErrChannelIO);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(NK::FileIChannel(NK::FileLocation(::testing::TempDir())).GetStatus(), NK::ErrChannelIO);
    EXPECT_EQ(NK::FileOChannel(NK::FileLocation("/nonexistent-folder-for-tests/file.bin")).Write(NK::Int16(1)), NK::ErrChannelIO);

    // A caller's error does not fail the channel; a skip stays within the data.
    NK::MemoryOChannel memory;
    EXPECT_EQ(memory.WriteBlock(nullptr, 3), NK::ErrInvalidArgument);
    EXPECT_EQ(memory.GetStatus(), NK::NoError);
    NK::MemoryIChannel skipping(Bytes {1, 0, 0, 0, 2, 0, 0, 0});
    NK::UInt32 second = 0;
    EXPECT_EQ(skipping.Skip(4), NK::NoError);
    EXPECT_EQ(skipping.Read(second), NK::NoError);
    EXPECT_EQ(second, 2u);
    EXPECT_EQ(skipping.Skip(1), NK::ErrChannelEnd);
}

TEST(CodePageTest, EveryByteRoundTripsAndUnmappableCharactersBecomeOneQuestionMarkEach)
{
    std::string all;
    for (int b = 1; b < 256; ++b)
        all += static_cast<char>(b);
    const NK::UniString decoded = NK::DecodeDefaultCodePage(all);
    EXPECT_EQ(decoded[0x80 - 1], u'\u20AC');
    EXPECT_EQ(decoded[0x81 - 1], u'\u0081');  // undefined in the code page: kept as the C1 control
    EXPECT_EQ(NK::CountUnmappable(decoded), 0u);
    EXPECT_EQ(NK::EncodeDefaultCodePage(decoded), all);

    // A CJK character, a character outside the BMP (a surrogate pair) and a lone surrogate.
    const NK::UniString text(std::u16string(u"a\u4E2Db\U0001F600c") + char16_t(0xD800) + u"?");
    EXPECT_EQ(NK::CountUnmappable(text), 3u);
    EXPECT_EQ(NK::EncodeDefaultCodePage(text), "a?b?c??");
}

}  // namespace
