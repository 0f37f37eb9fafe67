#include "prefs/PropertyList.h"

#include "prefs/Files.h"
#include "support/TestContext.h"

#include <gtest/gtest.h>

namespace tavvel {
namespace {

Value sampleRecord() {
    Dictionary split{{"category", Value("Food")}, {"memo", Value("")}, {"amount", Value("-1.5")}};
    return Value(Dictionary{
        {"text", Value("caf\xE9 <&> \xA3 5")}, // 8-bit statement bytes stay as they are
        {"integer", Value(std::int64_t{-42})},
        {"large", Value(std::int64_t{1} << 40)},
        {"real", Value(0.1)},
        {"yes", Value(true)},
        {"no", Value(false)},
        {"before2001", Value(Date{-86400.0 * 365})}, // 1969
        {"after2001", Value(Date{1717200000.0})},
        {"bytes", Value(Data{std::string("\x00\x01\xFF", 3)})},
        {"splits", Value(Array{Value(split), Value(Array{}), Value(Dictionary{})})},
        {"unknownKeyFromAnotherVersion", Value(Dictionary{{"nested", Value(Array{Value(1)})}})},
    });
}

TEST(PropertyList, XmlRoundTripKeepsEveryTypeAndNesting) {
    Value original = sampleRecord();
    std::string xml = encodePropertyList(original);
    EXPECT_NE(xml.find("<plist"), std::string::npos);
    auto back = decodePropertyList(xml);
    ASSERT_TRUE(back);
    EXPECT_EQ(*back, original);
    EXPECT_TRUE(back->dictionary().at("integer").isInteger());
    EXPECT_TRUE(back->dictionary().at("real").isReal());
    EXPECT_TRUE(back->dictionary().at("yes").isBoolean());
}

TEST(PropertyList, ReadsTheBinaryForm) {
    // A binary property list holding {"a": 1}, as another program writes it.
    const unsigned char bin[] = {'b',  'p',  'l', 'i',  's',  't',  '0',  '0',  0xD1, 0x01,
                                 0x02, 0x51, 'a', 0x10, 0x01, 0x08, 0x0B, 0x0D, 0,    0,
                                 0,    0,    0,   0,    1,    1,    0,    0,    0,    0,
                                 0,    0,    0,   3,    0,    0,    0,    0,    0,    0,
                                 0,    0,    0,   0,    0,    0,    0,    0,    0,    0x0F};
    auto value =
        decodePropertyList(std::string_view(reinterpret_cast<const char*>(bin), sizeof bin));
    ASSERT_TRUE(value);
    EXPECT_EQ(value->dictionary().at("a"), Value(1));
}

TEST(PropertyList, BadFilesAreReportedNeverHalfRead) {
    test::TempFolder folder;
    auto write = [&](const char* name, std::string_view bytes) {
        auto path = folder.path() / name;
        EXPECT_TRUE(writeFileAtomically(path, bytes));
        return path;
    };
    EXPECT_EQ(readPropertyListFile(folder.path() / "absent").status, PlistReadStatus::Missing);
    EXPECT_EQ(readPropertyListFile(write("garbage", "this is no plist")).status,
              PlistReadStatus::NotAPropertyList);
    EXPECT_EQ(readPropertyListFile(write("empty", "")).status, PlistReadStatus::NotAPropertyList);
    EXPECT_EQ(
        readPropertyListFile(write("truncated", encodePropertyList(sampleRecord()).substr(0, 120)))
            .status,
        PlistReadStatus::NotAPropertyList);
    EXPECT_EQ(readPropertyListFile(write("array", encodePropertyList(Value(Array{})))).status,
              PlistReadStatus::WrongRoot);
    auto ok = readPropertyListFile(write("array2", encodePropertyList(Value(Array{Value(1)}))),
                                   Value::Type::array);
    ASSERT_TRUE(ok.ok());
    EXPECT_EQ(ok.value.array().size(), 1u);
}

TEST(PropertyList, HostileNestingIsRefused) {
    std::string deep = "<?xml version=\"1.0\"?><plist version=\"1.0\">";
    for (int i = 0; i < 400; ++i)
        deep += "<array>";
    for (int i = 0; i < 400; ++i)
        deep += "</array>";
    deep += "</plist>";
    EXPECT_FALSE(decodePropertyList(deep));
}

// A binary property list holding one dictionary {key: 1}; `key` is the string object's bytes,
// marker included, so that ASCII and UTF-16 keys can be built alike.
std::string binaryDictionaryWithKey(std::string_view key) {
    std::string bytes = "bplist00";
    bytes += "\xD1\x01\x02"; // object 0: a dictionary of key 1 and value 2
    bytes += key;            // object 1
    bytes += "\x10\x01";     // object 2: the integer 1
    auto table = static_cast<char>(bytes.size());
    bytes += '\x08';
    bytes += '\x0B';
    bytes += static_cast<char>(0x0B + key.size());
    bytes += std::string(6, '\0') + "\x01\x01";
    bytes += std::string(7, '\0') + '\x03';
    bytes += std::string(8, '\0');
    bytes += std::string(7, '\0') + table;
    return bytes;
}

TEST(PropertyList, KeyHoldingNulByteIsRefusedNotAborted) {
    using namespace std::string_view_literals;
    auto plain = decodePropertyList(binaryDictionaryWithKey("\x53"
                                                            "abc"sv));
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->dictionary().at("abc"), Value(1));
    auto utf16 = decodePropertyList(binaryDictionaryWithKey("\x62\0a\0b"sv));
    ASSERT_TRUE(utf16);
    EXPECT_EQ(utf16->dictionary().at("ab"), Value(1));

    std::string why;
    EXPECT_FALSE(decodePropertyList(binaryDictionaryWithKey("\x53"
                                                            "a\0b"sv),
                                    &why));
    EXPECT_EQ(why, "the file is not a property list");
    EXPECT_FALSE(decodePropertyList(binaryDictionaryWithKey("\x62\0a\0\0"sv)));
    // A count written as a following integer object, as long strings have it.
    EXPECT_FALSE(decodePropertyList(binaryDictionaryWithKey("\x5F\x10\x02"
                                                            "a\0"sv)));

    // The XML form: a NUL character reference is refused, a raw NUL byte ends the key.
    const std::string head = "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>";
    const std::string tail = "</key><integer>1</integer></dict></plist>";
    EXPECT_FALSE(decodePropertyList(head + "a&#0;b" + tail));
    EXPECT_FALSE(decodePropertyList(head + "a&#x0;b" + tail));
    auto raw = decodePropertyList(head + std::string("a\0b", 3) + tail);
    ASSERT_TRUE(raw);
    EXPECT_EQ(raw->dictionary().size(), 1u);
}

TEST(Value, LenientConversionsAndRecordHelpers) {
    EXPECT_EQ(Value("12.5abc").toDouble(), 12.5);
    EXPECT_EQ(Value("7").toInteger(), 7);
    EXPECT_TRUE(Value("YES").toBool());
    EXPECT_FALSE(Value("0").toBool());
    EXPECT_EQ(Value(true).toInteger(), 1);
    EXPECT_EQ(Value(Array{}).toDouble(), 0);

    Dictionary record{{"categoryConfirm", Value("Y")}, {"n", Value(3)}};
    EXPECT_TRUE(flagOf(record, "categoryConfirm"));
    EXPECT_EQ(textOf(record, "n", "fallback"), "fallback");
    setFlag(record, "categoryConfirm", false);
    EXPECT_FALSE(has(record, "categoryConfirm"));
}

} // namespace
} // namespace tavvel
