#include "base/xml_file.h"
#include "support/temporary_folder.h"
#include "xml_samples.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace quillset;
using namespace std::string_literals;

namespace {

void expectVerdict(const test::XmlSample& sample, const std::string& bytes) {
    pugi::xml_document document;
    document.append_child("before");
    const XmlRead read = readXml(bytes, document);
    const bool wanted =
        sample.verdict == test::Verdict::accepted || sample.verdict == test::Verdict::acceptedByUs;
    EXPECT_EQ(read.ok, wanted) << sample.name << ": " << read.problem;
    EXPECT_EQ(read.ok, read.problem.empty()) << sample.name;
    EXPECT_EQ(read.ok, !document.document_element().empty()) << sample.name;
    if (!read.ok) {
        EXPECT_FALSE(document.first_child()) << sample.name << ": half a document";
        EXPECT_NE(read.problem.find(sample.problem), std::string::npos)
            << sample.name << ": " << read.problem;
    }
}

} // namespace

TEST(XmlRead, AcceptsAndRefuses) {
    for (const test::XmlSample& sample : test::plainSamples()) {
        expectVerdict(sample, sample.bytes);
        const bool ascii =
            std::none_of(sample.bytes.begin(), sample.bytes.end(), [](char c) { return (c & 0x80) != 0; });
        // A declared UTF-8 would contradict the wide bytes.
        if (ascii && sample.bytes.find("encoding=\"UTF-8\"") == std::string::npos) {
            expectVerdict(sample, test::widened(sample.bytes, true));
            expectVerdict(sample, test::widened(sample.bytes, false));
        }
    }
    for (const test::XmlSample& sample : test::encodedSamples())
        expectVerdict(sample, sample.bytes);
}

TEST(XmlRead, NamesLineAndColumn) {
    const struct {
        std::string bytes;
        const char* place;
    } rows[] = {
        {"<a>\r\n<b>\r<c>\n  &x;", "Line 4, column 3: "},
        {"<a>äöü 日本 &x;</a>", "Line 1, column 11: "},
        {"\xEF\xBB\xBF<a>&x;</a>", "Line 1, column 4: "},
        {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<\xE4>\xF6\xF6&x;", "Line 2, column 6: "},
        {test::widened("<a>\n &x;</a>", true), "Line 2, column 2: "},
    };
    for (const auto& row : rows) {
        pugi::xml_document document;
        EXPECT_EQ(readXml(row.bytes, document).problem.substr(0, std::string(row.place).size()), row.place);
    }
}

TEST(XmlRead, TellsTheEncodingAndDecodes) {
    const auto declared = [](const char* name) {
        return "<?xml version=\"1.0\" encoding=\""s + name + "\"?>";
    };
    const struct {
        std::string bytes;
        TextEncoding encoding;
        const char* text;
    } rows[] = {
        {"<a>ä€</a>", TextEncoding::utf8, "ä€"},
        {"\xEF\xBB\xBF<a>ä</a>", TextEncoding::utf8WithMark, "ä"},
        {declared("UTF-8") + "<a>ä</a>", TextEncoding::utf8, "ä"},
        {"\xFF\xFE<\0a\0>\0\xAC\x20\x3D\xD8\x00\xDE<\0/\0a\0>\0"s, TextEncoding::utf16LittleEndian, "€😀"},
        {"\xFE\xFF\0<\0a\0>\x20\xAC\xD8\x3D\xDE\x00\0<\0/\0a\0>"s, TextEncoding::utf16BigEndian, "€😀"},
        {declared("us-ascii") + "<a>x</a>", TextEncoding::usAscii, "x"},
        {declared("ISO-8859-1") + "<a>\xE4\x80</a>", TextEncoding::latin1, "ä\xC2\x80"},
        {declared("ISO-8859-2") + "<a>\xB1</a>", TextEncoding::latin2, "ą"},
        {declared("ISO-8859-9") + "<a>\xFE</a>", TextEncoding::latin5, "ş"},
        {declared("ISO-8859-15") + "<a>\xA4</a>", TextEncoding::latin9, "€"},
        {declared("windows-1250") + "<a>\x8A</a>", TextEncoding::windows1250, "Š"},
        {declared("windows-1251") + "<a>\xC6</a>", TextEncoding::windows1251, "Ж"},
        {declared("windows-1252") + "<a>\x80\x99\x81</a>", TextEncoding::windows1252, "€™\xC2\x81"},
        {declared("windows-1253") + "<a>\xD9</a>", TextEncoding::windows1253, "Ω"},
        {declared("windows-1254") + "<a>\xDD</a>", TextEncoding::windows1254, "İ"},
        {declared("windows-1257") + "<a>\xE0</a>", TextEncoding::windows1257, "ą"},
    };
    for (const auto& row : rows) {
        pugi::xml_document document;
        const XmlRead read = readXml(row.bytes, document);
        EXPECT_TRUE(read.ok) << row.text << ": " << read.problem;
        EXPECT_EQ(read.encoding, row.encoding) << row.text;
        EXPECT_STREQ(document.child_value("a"), row.text);
    }
}

// Names are compared in pairs only where a hash says that they may be equal, and sorted when there are many.
TEST(XmlRead, FindsARepeatedAttributeAmongAnyNumber) {
    for (const int count : {2, 12, 39, 40, 41, 500, 20'000}) {
        std::string good = "<a";
        for (int i = 0; i < count; ++i)
            good += " n" + std::to_string(i * 7919) + "=\"\"";
        pugi::xml_document document;
        EXPECT_TRUE(readXml(good + "/>", document).ok) << count;
        for (const int twice : {0, count / 2, count - 1}) {
            const std::string bad = good + " n" + std::to_string(twice * 7919) + "=\"\"/>";
            EXPECT_FALSE(readXml(bad, document).ok) << count << ", " << twice;
        }
    }
}

TEST(XmlRead, AMillionOpenElementsAreRefusedNotACrash) {
    pugi::xml_document document;
    EXPECT_FALSE(readXml(test::nested(1'000'000), document).ok);
    std::string groups = "<!DOCTYPE a [<!ELEMENT a " + std::string(1'000'000, '(');
    EXPECT_FALSE(readXml(groups, document).ok);
}

TEST(XmlRead, Files) {
    const test::TemporaryFolder folder;
    pugi::xml_document document;
    EXPECT_TRUE(readXmlFile(folder.write("good.xml", "<a>ä</a>"), document).ok);
    EXPECT_STREQ(document.child_value("a"), "ä");
    EXPECT_EQ(readXmlFile(folder.write("bad.xml", "<a>"), document).problem,
              "Line 1, column 4: the file ends, but the element \"a\" is still open");
    EXPECT_FALSE(document.first_child());
    EXPECT_FALSE(readXmlFile(folder.file("missing.xml"), document).ok);
    EXPECT_FALSE(readXmlFile(folder.path(), document).ok);
    EXPECT_FALSE(readXmlFile(folder.write("empty.xml", ""), document).ok);
}
