#include "NK/NKChannel.hpp"
#include "NK/NKCodePage.hpp"
#include "NK/NKFileChannel.hpp"
#include "NK/NKMemoryChannel.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <functional>
#include <limits>
#include <memory>

namespace {

using NK::Byte;

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
    std::vector<Byte> block {0x00, 0xFF, 0x10, 0x7F};

    void WriteTo(NK::OChannel& out) const
    {
        out.Write(i16);
        out.Write(u16);
        out.Write(i32);
        out.Write(u32);
        out.Write(i64);
        out.Write(u64);
        out.Write(flag);
        out.Write(id);
        out.Write(text);
        out.Write(empty);
        out.Write8BitString(legacy);
        out.Write(static_cast<NK::UInt32>(block.size()));
        out.WriteBlock(block);
    }

    // Reads into a fresh sample and returns the first error.
    static NK::ErrCode ReadFrom(NK::IChannel& in, Sample& s)
    {
        NK::UInt32 blockSize = 0;
        for (NK::ErrCode error : {in.Read(s.i16), in.Read(s.u16), in.Read(s.i32), in.Read(s.u32), in.Read(s.i64), in.Read(s.u64),
                                  in.Read(s.flag), in.Read(s.id), in.Read(s.text), in.Read(s.empty), in.Read8BitString(s.legacy),
                                  in.Read(blockSize), in.ReadBlock(s.block, blockSize)}) {
            if (error != NK::NoError)
                return error;
        }
        return NK::NoError;
    }

    bool operator==(const Sample&) const = default;
};

// A sample whose every field differs from the written one, to see what a read touched.
Sample Blank()
{
    return Sample {1, 2, 3, 4, 5, 6, false, NK::NullGuid, "x", "y", "z", {9}};
}

std::vector<Byte> Written(const std::function<void(NK::OChannel&)>& write)
{
    NK::MemoryOChannel out;
    write(out);
    EXPECT_EQ(out.GetStatus(), NK::NoError);
    return out.TakeBytes();
}

class ChannelTest : public ::testing::Test {
protected:
    NK::FileLocation TempFile(const char* name) const { return NK::FileLocation(::testing::TempDir() + "nk_channel_" + name); }

    void WriteFile(const NK::FileLocation& file, const std::vector<Byte>& bytes) const
    {
        std::ofstream out(file.GetPath(), std::ios::binary | std::ios::trunc);
        out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
};

TEST_F(ChannelTest, IntegersAreLittleEndianOnTheWire)
{
    const std::vector<Byte> bytes = Written([](NK::OChannel& out) {
        out.Write(NK::Int16(-2));
        out.Write(NK::UInt32(0x01020304u));
        out.Write(true);
        out.Write(NK::UniString(u"A\u20AC"));
        out.Write8BitString(NK::UniString(u"\u00E9\u20AC"));
    });
    EXPECT_EQ(bytes, (std::vector<Byte> {0xFE, 0xFF, 0x04, 0x03, 0x02, 0x01, 0x01, 0x02, 0, 0, 0, 0x41, 0x00, 0xAC, 0x20, 0x02, 0, 0,
                                         0, 0xE9, 0x80}));
}

TEST_F(ChannelTest, EveryKindRoundTripsThroughMemoryAndFile)
{
    const Sample written;
    const std::vector<Byte> bytes = Written([&](NK::OChannel& out) { written.WriteTo(out); });

    NK::MemoryIChannel memory(bytes);
    Sample fromMemory = Blank();
    EXPECT_EQ(Sample::ReadFrom(memory, fromMemory), NK::NoError);
    EXPECT_EQ(fromMemory, written);
    EXPECT_EQ(memory.GetRemaining(), 0u);

    const NK::FileLocation file = TempFile("roundtrip.bin");
    {
        NK::FileOChannel out(file);
        written.WriteTo(out);
        EXPECT_EQ(out.Close(), NK::NoError);
    }
    NK::FileIChannel in(file);
    Sample fromFile = Blank();
    EXPECT_EQ(Sample::ReadFrom(in, fromFile), NK::NoError);
    EXPECT_EQ(fromFile, written);
    EXPECT_EQ(in.GetRemaining(), 0u);
}

TEST_F(ChannelTest, EveryTruncationOfAStreamIsAnErrorThatSticks)
{
    const std::vector<Byte> bytes = Written([](NK::OChannel& out) { Sample().WriteTo(out); });
    const NK::FileLocation file = TempFile("truncated.bin");
    for (NK::UIndex length = 0; length < bytes.size(); ++length) {
        const std::vector<Byte> prefix(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length));
        WriteFile(file, prefix);
        NK::MemoryIChannel memory(prefix);
        NK::FileIChannel disk(file);
        for (NK::IChannel* in : {static_cast<NK::IChannel*>(&memory), static_cast<NK::IChannel*>(&disk)}) {
            SCOPED_TRACE(testing::Message() << "length " << length << (in == &memory ? " memory" : " file"));
            Sample read = Blank();
            EXPECT_EQ(Sample::ReadFrom(*in, read), NK::ErrChannelEnd);
            EXPECT_EQ(in->GetStatus(), NK::ErrChannelEnd);
            // The channel stays failed, even for a read that would fit what is left.
            NK::Int16 untouched = 77;
            EXPECT_EQ(in->Read(untouched), NK::ErrChannelEnd);
            EXPECT_EQ(untouched, 77);
            EXPECT_EQ(in->GetRemaining(), 0u);
        }
    }
}

TEST_F(ChannelTest, CountsBeyondTheDataAndBadBoolsFailAndLeaveTheValue)
{
    // A count that promises more than is there, and one that would be an absurd allocation.
    for (const std::vector<Byte>& bytes : {std::vector<Byte> {5, 0, 0, 0, 'a', 0, 'b', 0}, std::vector<Byte> {0xFF, 0xFF, 0xFF, 0xFF, 'x'}}) {
        NK::MemoryIChannel forUnicode(bytes);
        NK::MemoryIChannel for8Bit(bytes);
        NK::MemoryIChannel forBlock(bytes);
        NK::UniString text("kept");
        NK::UniString legacy("kept");
        std::vector<Byte> block {1};
        EXPECT_EQ(forUnicode.Read(text), NK::ErrChannelEnd);
        EXPECT_EQ(for8Bit.Read8BitString(legacy), NK::ErrChannelEnd);
        EXPECT_EQ(forBlock.ReadBlock(block, std::numeric_limits<NK::UInt64>::max()), NK::ErrChannelEnd);
        EXPECT_EQ(text, NK::UniString("kept"));
        EXPECT_EQ(legacy, NK::UniString("kept"));
        EXPECT_EQ(block, std::vector<Byte> {1});
    }

    NK::MemoryIChannel in(std::vector<Byte> {1, 0, 2, 1});
    bool one = false;
    bool zero = true;
    bool kept = true;
    EXPECT_EQ(in.Read(one), NK::NoError);
    EXPECT_EQ(in.Read(zero), NK::NoError);
    EXPECT_EQ(in.Read(kept), NK::ErrChannelFormat);
    EXPECT_TRUE(one && !zero && kept);
    EXPECT_EQ(in.Read(kept), NK::ErrChannelFormat);  // the failure sticks
}

TEST_F(ChannelTest, FileChannelsThatCannotOpenOrAreClosedFailAndWriteNothingMore)
{
    const NK::FileLocation file = TempFile("closed.bin");
    NK::FileOChannel out(file);
    EXPECT_EQ(out.Write(NK::Int32(1)), NK::NoError);
    EXPECT_EQ(out.Close(), NK::NoError);
    EXPECT_EQ(out.Write(NK::UniString("later")), NK::ErrNotOpen);
    EXPECT_EQ(out.GetStatus(), NK::ErrNotOpen);
    EXPECT_EQ(NK::FileIChannel(file).GetRemaining(), 4u);

    NK::FileIChannel missing(TempFile("does-not-exist.bin"));
    NK::Int16 value = 5;
    EXPECT_EQ(missing.Read(value), NK::ErrChannelIO);
    EXPECT_EQ(value, 5);
    EXPECT_EQ(NK::FileIChannel(NK::FileLocation(::testing::TempDir())).GetStatus(), NK::ErrChannelIO);
    NK::FileOChannel unwritable(NK::FileLocation("/nonexistent-folder-for-tests/file.bin"));
    EXPECT_EQ(unwritable.Write(NK::Int16(1)), NK::ErrChannelIO);
}

TEST_F(ChannelTest, CallerErrorsDoNotFailTheChannelAndSkipStaysWithinTheData)
{
    NK::MemoryOChannel out;
    EXPECT_EQ(out.WriteBlock(nullptr, 3), NK::ErrInvalidArgument);
    EXPECT_EQ(out.GetStatus(), NK::NoError);
    EXPECT_EQ(out.WriteBlock(nullptr, 0), NK::NoError);
    EXPECT_EQ(out.GetSize(), 0u);

    NK::MemoryIChannel in(std::vector<Byte> {1, 0, 0, 0, 2, 0, 0, 0});
    NK::UInt32 value = 0;
    EXPECT_EQ(in.Skip(4), NK::NoError);
    EXPECT_EQ(in.Read(value), NK::NoError);
    EXPECT_EQ(value, 2u);
    EXPECT_EQ(in.Skip(1), NK::ErrChannelEnd);
}

TEST(CodePageTest, UnmappableCharactersBecomeOneQuestionMarkEach)
{
    // A CJK character, a character outside the BMP (a surrogate pair) and a lone surrogate.
    const NK::UniString text(std::u16string(u"a\u4E2Db\U0001F600c") + char16_t(0xD800) + u"?");
    EXPECT_EQ(NK::CountUnmappable(text), 3u);
    EXPECT_EQ(NK::EncodeDefaultCodePage(text), "a?b?c??");

    NK::MemoryOChannel out;
    EXPECT_EQ(out.Write8BitString(text), NK::NoError);
    NK::MemoryIChannel in(out.GetBytes());
    NK::UniString back;
    EXPECT_EQ(in.Read8BitString(back), NK::NoError);
    EXPECT_EQ(back, NK::UniString("a?b?c??"));
}

TEST(CodePageTest, EveryByteDecodesAndRoundTrips)
{
    std::string all;
    for (int b = 1; b < 256; ++b)
        all += static_cast<char>(b);
    const NK::UniString text = NK::DecodeDefaultCodePage(all);
    EXPECT_EQ(text.GetLength(), all.size());
    EXPECT_EQ(NK::CountUnmappable(text), 0u);
    EXPECT_EQ(text[0x80 - 1], u'\u20AC');
    EXPECT_EQ(text[0x81 - 1], u'\u0081');  // undefined in the code page: kept as the C1 control
    EXPECT_EQ(NK::EncodeDefaultCodePage(text), all);
}

}  // namespace
