#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "storage/RecordFile.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/storage/Bytes.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TaggedValue readTagged(const Bytes& bytes) {
    return RecordReader(bytes).taggedValue();
}

Bytes written(const TaggedValue& value) {
    RecordWriter writer;
    writer.taggedValue(value);
    return Bytes(writer.bytes().begin(), writer.bytes().end());
}

Bytes writtenText(std::string_view text) {
    RecordWriter writer;
    writer.text(text);
    return Bytes(writer.bytes().begin(), writer.bytes().end());
}

TEST(RecordReader, ReadsOneValueFromEachRecord) {
    const Bytes bytes = joined({integerRecord(20, 0xCC), textRecord("Quiz", 0xCC),
                                taggedTextRecord("E", 0xCC), integerRecord(-1, 0xCC)});
    RecordReader reader(bytes);
    EXPECT_EQ(reader.integer(), 20);
    EXPECT_EQ(reader.text(), "Quiz");
    EXPECT_EQ(reader.taggedValue(), TaggedValue(std::string("E")));
    EXPECT_FALSE(reader.atEnd());
    EXPECT_EQ(reader.integer(), -1);
    EXPECT_TRUE(reader.atEnd());
}

TEST(RecordReader, ReadsIntegersOfEitherSignLowByteFirst) {
    const Bytes bytes =
        joined({recordWith(hex("34 12")), recordWith(hex("00 80")), recordWith(hex("FF 7F"))});
    RecordReader reader(bytes);
    EXPECT_EQ(reader.integer(), 0x1234);
    EXPECT_EQ(reader.integer(), -32768);
    EXPECT_EQ(reader.integer(), 32767);
}

TEST(RecordReader, ReadsEveryTypeOfTaggedValue) {
    EXPECT_EQ(readTagged(recordWith(hex("00 00"), 0xCC)), TaggedValue());
    EXPECT_EQ(readTagged(recordWith(hex("02 00 FE FF"), 0xCC)), TaggedValue(std::int16_t{-2}));
    EXPECT_EQ(readTagged(recordWith(hex("03 00 70 11 01 00"), 0xCC)),
              TaggedValue(std::int32_t{70000}));
    EXPECT_EQ(readTagged(recordWith(hex("04 00 00 00 40 3F"), 0xCC)), TaggedValue(0.75F));
    EXPECT_EQ(readTagged(recordWith(hex("05 00 00 00 00 00 00 00 04 C0"), 0xCC)),
              TaggedValue(-2.5));
    EXPECT_EQ(readTagged(recordWith(hex("08 00 02 00 31 37"), 0xCC)),
              TaggedValue(std::string("17")));
}

TEST(RecordReader, AnUnknownTypeReadsAsEmptyAndTheNextRecordFollows) {
    for (int tag = 0; tag <= 0xFFFF; ++tag) {
        if (tag == 2 || tag == 3 || tag == 4 || tag == 5 || tag == 8) continue;
        const Bytes bytes = integerRecord(tag, 0x01) + taggedIntegerRecord(5);
        RecordReader reader(bytes);
        ASSERT_EQ(reader.taggedValue(), TaggedValue()) << tag;
        ASSERT_EQ(reader.taggedValue(), TaggedValue(std::int16_t{5})) << tag;
    }
}

TEST(RecordReader, ReadsBehindTheEndAsEmpty) {
    RecordReader reader({});
    EXPECT_TRUE(reader.atEnd());
    EXPECT_EQ(reader.integer(), 0);
    EXPECT_EQ(reader.text(), "");
    EXPECT_EQ(reader.taggedValue(), TaggedValue());
}

TEST(RecordReader, ReadsAFileBlockByBlock) {
    Bytes bytes;
    constexpr int records = 5000;
    for (int number = 0; number < records; ++number)
        bytes = std::move(bytes) + integerRecord(number);
    BytesInputFile file(bytes + hex("41"));
    RecordReader reader(file);
    for (int number = 0; number < records; ++number) {
        ASSERT_FALSE(reader.atEnd()) << number;
        ASSERT_EQ(reader.integer(), number);
    }
    EXPECT_FALSE(reader.atEnd());
    EXPECT_EQ(reader.integer(), 0);
    EXPECT_TRUE(reader.atEnd());
    EXPECT_EQ(reader.integer(), 0);
    EXPECT_TRUE(reader.atEnd());
}

/// A file that cannot be read at one place, and could be read on behind it.
class DamagedFile final : public InputFile {
  private:
    std::optional<std::size_t> readSome(std::span<std::byte> target) override {
        if (++reads_ == 2) return std::nullopt;
        std::ranges::fill(target, std::byte{0x01});
        return target.size();
    }

    int reads_ = 0;
};

TEST(RecordReader, AFileEndsWhereItCannotBeReadAnyFurtherAndThatIsKnown) {
    DamagedFile file;
    RecordReader reader(file);
    for (int number = 0; number < 2048; ++number) ASSERT_EQ(reader.integer(), 0x0101);
    EXPECT_FALSE(reader.brokeOff());
    EXPECT_TRUE(reader.atEnd());
    EXPECT_EQ(reader.integer(), 0);
    EXPECT_TRUE(reader.brokeOff());
}

/// What the first record is called, read by `read`; empty where it is sound.
std::string damageOf(const Bytes& bytes, const std::function<void(RecordReader&)>& read) {
    RecordReader reader(bytes);
    read(reader);
    if (!reader.firstDamage()) return "";
    EXPECT_EQ(reader.firstDamage()->number, 1U);
    return reader.firstDamage()->reason;
}

TEST(RecordReader, SaysWhatIsWrongWithARecord) {
    const auto integer = [](RecordReader& reader) { reader.integer(); };
    const auto text = [](RecordReader& reader) { reader.text(); };
    const auto tagged = [](RecordReader& reader) { reader.taggedValue(); };
    EXPECT_EQ(damageOf(integerRecord(5), integer), "");
    EXPECT_EQ(damageOf({}, integer), "it is missing");
    EXPECT_EQ(damageOf(hex("05"), integer), "it is cut short");
    EXPECT_EQ(damageOf(textRecord(std::string(126, 'x')), text), "");
    EXPECT_EQ(damageOf(hex("02 00 41"), text), "it is cut short");
    EXPECT_EQ(damageOf(recordWith(hex("7F 00")), text),
              "a text of 127 characters, where 126 have room");
    EXPECT_EQ(damageOf(taggedTextRecord(std::string(124, 'x')), tagged), "");
    EXPECT_EQ(damageOf(recordWith(hex("08 00 7D 00")), tagged),
              "a text of 125 characters, where 124 have room");
    EXPECT_EQ(damageOf(recordWith(hex("07 00")), tagged), "a value of unknown type 7");
    for (const char* shortened : {"02", "02 00 05", "03 00 05 00 00", "04 00 00 00 20",
                                  "05 00 00 00 00 00 00 00 04", "08 00 02", "08 00 02 00 31"})
        EXPECT_EQ(damageOf(hex(shortened), tagged), "it is cut short") << shortened;
}

TEST(RecordReader, NamesTheFirstDamagedRecordAndCountsAllThatAreThere) {
    const Bytes bytes = integerRecord(1) + recordWith(hex("07 00")) + hex("05");
    RecordReader reader(bytes);
    reader.integer();
    reader.taggedValue();
    reader.integer();
    reader.integer();
    ASSERT_TRUE(reader.firstDamage());
    EXPECT_EQ(reader.firstDamage()->number, 2U);
    EXPECT_EQ(reader.recordsPresent(), 3U);
}

TEST(RecordReader, PassesOverTheRestOfAFile) {
    BytesInputFile file(Bytes(5000 * 128 + 1, std::byte{0x01}));
    RecordReader reader(file);
    reader.integer();
    reader.skipRest();
    EXPECT_TRUE(reader.atEnd());
    EXPECT_EQ(reader.recordsPresent(), 5001U);
    EXPECT_FALSE(reader.firstDamage());
}

TEST(RecordReader, AFileOfWholeBlocksEndsWithTheLast) {
    for (const std::size_t records : {2047U, 2048U, 2049U, 4096U}) {
        BytesInputFile file(Bytes(records * 128, std::byte{0x01}));
        RecordReader reader(file);
        std::size_t count = 0;
        for (; !reader.atEnd(); ++count) ASSERT_EQ(reader.integer(), 0x0101);
        EXPECT_EQ(count, records);
    }
}

TEST(RecordReader, ATextLongerThanItsRecordIsWhatTheRecordHolds) {
    EXPECT_EQ(RecordReader(recordWith(hex("FF FF"), 'x') + textRecord("next")).text(),
              std::string(126, 'x'));
    EXPECT_EQ(RecordReader(recordWith(hex("7F 00"), 'x') + textRecord("next")).text(),
              std::string(126, 'x'));
    EXPECT_EQ(readTagged(recordWith(hex("08 00 FF FF"), 'x') + textRecord("next")),
              TaggedValue(std::string(124, 'x')));
}

TEST(RecordReader, KeepsEveryByteOfAText) {
    const std::string text("a\0\xFF\r\nb", 6);
    EXPECT_EQ(RecordReader(textRecord(text)).text(), text);
    EXPECT_EQ(readTagged(taggedTextRecord(text)), TaggedValue(text));
}

TEST(RecordReader, AShortenedTextIsWhatThereIsOfIt) {
    const Bytes whole = textRecord("Quiz", 0xCC);
    const std::string expected[] = {"", "", "", "Q", "Qu", "Qui", "Quiz", "Quiz"};
    for (std::size_t size = 0; size < std::size(expected); ++size) {
        EXPECT_EQ(RecordReader(firstBytes(whole, size)).text(), expected[size]) << size;
    }
}

TEST(RecordReader, AnIntegerOfWhichOneByteIsThereIsZero) {
    const Bytes whole = integerRecord(20);
    EXPECT_EQ(RecordReader(firstBytes(whole, 1)).integer(), 0);
    EXPECT_EQ(RecordReader(firstBytes(whole, 2)).integer(), 20);
}

TEST(RecordReader, ATaggedNumberOfWhichBytesAreMissingIsEmpty) {
    const Bytes numbers[] = {hex("02 00 05 00"), hex("03 00 05 00 00 00"), hex("04 00 00 00 40 3F"),
                             hex("05 00 00 00 00 00 00 00 04 C0")};
    for (const Bytes& number : numbers) {
        for (std::size_t size = 0; size < number.size(); ++size) {
            EXPECT_EQ(readTagged(firstBytes(number, size)), TaggedValue()) << size;
        }
        EXPECT_NE(readTagged(number), TaggedValue());
    }
}

TEST(RecordReader, AShortenedTaggedTextIsEmptyWithoutItsLengthAndElseWhatThereIsOfIt) {
    const Bytes text = hex("08 00 02 00 31 37");
    for (std::size_t size = 0; size < 4; ++size) {
        EXPECT_EQ(readTagged(firstBytes(text, size)), TaggedValue()) << size;
    }
    EXPECT_EQ(readTagged(firstBytes(text, 4)), TaggedValue(std::string()));
    EXPECT_EQ(readTagged(firstBytes(text, 5)), TaggedValue(std::string("1")));
    EXPECT_EQ(readTagged(text), TaggedValue(std::string("17")));
}

std::vector<std::string> smallTextsOf(RecordReader& reader, std::size_t most) {
    std::vector<SmallValue> values(most);
    values.resize(reader.smallTexts(values));
    std::vector<std::string> texts;
    texts.reserve(values.size());
    for (const SmallValue& value : values) texts.push_back(textOf(value.view()));
    return texts;
}

using Texts = std::vector<std::string>;

TEST(RecordReader, TakesSmallTextsTogetherUntilAnythingElseComes) {
    const Bytes others[] = {emptyRecord(0xCC),
                            taggedIntegerRecord(7, 0xCC),
                            taggedTextRecord("123456789", 0xCC),
                            recordWith(hex("08 01 01 00 31")),
                            recordWith(hex("08 00 01 01 31")),
                            firstBytes(taggedTextRecord("2"), 127)};
    for (const Bytes& other : others) {
        const Bytes bytes = joined({taggedTextRecord("17", 0xCC), taggedTextRecord("", 0xCC),
                                    taggedTextRecord("12345678"), other});
        RecordReader reader(bytes);
        EXPECT_EQ(smallTextsOf(reader, 2), (Texts{"17", ""}));
        EXPECT_EQ(smallTextsOf(reader, 9), (Texts{"12345678"}));
        EXPECT_EQ(smallTextsOf(reader, 9), Texts());
        EXPECT_EQ(reader.recordsPresent(), 3u);
        EXPECT_FALSE(reader.firstDamage()) << "what comes next is still to be read";
        EXPECT_EQ(reader.taggedValue(), readTagged(other));
    }
}

TEST(RecordReader, HasNoSmallTextsAtHandBehindTheEnd) {
    RecordReader reader(std::span<const std::byte>{});
    EXPECT_EQ(smallTextsOf(reader, 9), Texts());
    EXPECT_FALSE(reader.firstDamage());
}

TEST(RecordWriter, WritesSmallValuesAsTheSameRecords) {
    const std::vector<TaggedValue> values{
        {},   std::int16_t{-2}, std::int32_t{70000}, 0.75F,
        -2.5, std::string(),    std::string("17"),   std::string("12345678")};
    RecordWriter writer;
    writer.integer(1);
    std::vector<SmallValue> small;
    Bytes expected = integerRecord(1);
    for (const TaggedValue& value : values) {
        small.emplace_back(viewOf(value));
        expected = expected + written(value);
    }
    writer.smallValues(small);
    EXPECT_EQ(Bytes(writer.bytes().begin(), writer.bytes().end()), expected);
}

TEST(RecordStream, HandsOnSmallValuesBlockByBlock) {
    MemoryFiles files;
    const auto file = files.openForWriting("/many");
    RecordStream stream(*file);
    std::vector<SmallValue> values;
    Bytes expected = integerRecord(1);
    for (int number = 0; number < 5000; ++number) {
        const std::string text = std::to_string(number);
        values.emplace_back(std::string_view(text));
        expected = expected + taggedTextRecord(text);
    }
    stream.next().integer(1);
    stream.smallValues(values);
    EXPECT_GE(files.files["/many"].size() + 1024 * 1024, expected.size());
    stream.finish();
    EXPECT_FALSE(stream.failed());
    EXPECT_EQ(files.files["/many"], expected);
}

TEST(RecordWriter, WritesOneRecordAValueAndFillsItWithZeros) {
    RecordWriter writer;
    writer.integer(-2);
    writer.text("Quiz");
    writer.taggedValue(std::string("E"));
    EXPECT_EQ(Bytes(writer.bytes().begin(), writer.bytes().end()),
              joined({recordWith(hex("FE FF")), recordWith(hex("04 00 51 75 69 7A")),
                      recordWith(hex("08 00 01 00 45"))}));
}

TEST(RecordWriter, WritesEveryTypeOfTaggedValue) {
    EXPECT_EQ(written({}), recordWith({}));
    EXPECT_EQ(written(std::int16_t{-2}), recordWith(hex("02 00 FE FF")));
    EXPECT_EQ(written(std::int32_t{70000}), recordWith(hex("03 00 70 11 01 00")));
    EXPECT_EQ(written(0.75F), recordWith(hex("04 00 00 00 40 3F")));
    EXPECT_EQ(written(-2.5), recordWith(hex("05 00 00 00 00 00 00 00 04 C0")));
    EXPECT_EQ(written(std::string("17")), recordWith(hex("08 00 02 00 31 37")));
}

TEST(RecordWriter, CutsTextsToWhatARecordHolds) {
    EXPECT_EQ(writtenText(std::string(126, 'x')), recordWith(hex("7E 00"), 'x'));
    EXPECT_EQ(writtenText(std::string(127, 'x')), recordWith(hex("7E 00"), 'x'));
    EXPECT_EQ(writtenText(std::string(70000, 'x')), recordWith(hex("7E 00"), 'x'));
    EXPECT_EQ(written(std::string(124, 'x')), recordWith(hex("08 00 7C 00"), 'x'));
    EXPECT_EQ(written(std::string(125, 'x')), recordWith(hex("08 00 7C 00"), 'x'));
}

TEST(RecordStream, HandsOnEveryRecordInOrderHoweverManyThereAre) {
    MemoryFiles files;
    constexpr int records = 5000;
    const auto file = files.openForWriting("/many");
    RecordStream stream(*file);
    for (int number = 0; number < records; ++number) {
        stream.next().integer(static_cast<std::int16_t>(number));
    }
    stream.finish();
    EXPECT_FALSE(stream.failed());
    EXPECT_EQ(file->length(), std::uint64_t{records} * 128);
    const Bytes& bytes = files.files["/many"];
    ASSERT_EQ(bytes.size(), std::size_t{records} * 128);
    RecordReader reader(bytes);
    for (int number = 0; number < records; ++number) ASSERT_EQ(reader.integer(), number);
}

TEST(RecordStream, HoldsBackNoMoreThanABlock) {
    MemoryFiles files;
    const auto file = files.openForWriting("/many");
    RecordStream stream(*file);
    constexpr int records = 100000;
    for (int number = 0; number < records; ++number) stream.next().integer(1);
    EXPECT_GE(files.files["/many"].size() + 1024 * 1024, std::size_t{records} * 128);
}

}  // namespace
}  // namespace quorvel
