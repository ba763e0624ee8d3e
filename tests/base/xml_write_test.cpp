#include "base/tag_lines.h"
#include "base/xml_file.h"
#include "support/temporary_folder.h"
#include "xml_samples.h"

#include <gtest/gtest.h>

using namespace quillset;
using namespace std::string_literals;

namespace {

// Bytes read and written again in their encoding.
std::string rewritten(const std::string& bytes) {
    pugi::xml_document document;
    const XmlRead read = readXml(bytes, document);
    EXPECT_TRUE(read.ok) << read.problem;
    return writeXml(document, read.encoding);
}

std::string declared(const std::string& encoding) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>";
}

} // namespace

TEST(XmlWrite, KeepsWhatWasRead) {
    const std::string rows[] = {
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?><!DOCTYPE a SYSTEM \"b.dtd\"><!-- c "
        "--><a/>",
        "<!DOCTYPE a [<!ENTITY e 'x > \"y\"'>\r\n<!-- ]> -->]><a>x</a><?after it?><!---->",
        "<a z=\"1\" b=\"a &amp; &lt;b&gt; &quot;'&#9;&#10;&#13;\"> x &amp; &lt;y&gt; \" ' \t&#13;\r\nz </a>",
        "<a><![CDATA[ <b> & \r\n ]]><![CDATA[]]>t<?p?><?q r s ?><!-- - --><b c=\"\"/></a>",
        "<a>&#32; \t<b>&#10;</b></a>",
        "<FSData xmlns:xsi=\"u\" xsi:n=\"bglcomp.xsd\"><Unknown><x:y xmlns:x=\"v\">ü 日本 "
        "😀</x:y></Unknown></FSData>",
    };
    for (const std::string& row : rows)
        EXPECT_EQ(rewritten(row), row);
}

TEST(XmlWrite, NormalisesWhatMeansTheSame) {
    const struct {
        const char* read;
        const char* written;
    } rows[] = {
        {"<a></a>", "<a/>"},
        {"<a >\n <b\tc = 'd' />\r\n</a>", "<a><b c=\"d\"/></a>"},
        {"<a b='&#x41;\"'>&apos;x\ny\r\nz\rw</a>", "<a b=\"A&quot;\">'x\r\ny\r\nz\r\nw</a>"},
        {"<a b='x\n\ty\r\nz'/>", "<a b=\"x  y z\"/>"},
        {"<!--\n--><?p\nq\nr?><a/>\n", "<!--\r\n--><?p q\r\nr?><a/>"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(rewritten(row.read), row.written);
}

TEST(XmlWrite, KeepsTheEncoding) {
    const std::string rows[] = {
        "\xEF\xBB\xBF" + declared("utf-8") + "<a>ä</a>",
        declared("US-ASCII") + "<a b=\"&#228;\">&#8364;</a>",
        declared("ISO-8859-1") + "<\xE4 \xF6=\"\xDF &#8364;\">\xA4 &#128512;<!-- \xFF --></\xE4>",
        declared("ISO-8859-15") + "<a>\xA4 &#164;</a>",
        declared("windows-1252") + "<a>\x80\x99\x81\xE4 &#261;</a>",
        declared("windows-1250") + "<a>\x8A\xB9</a>",
        declared("windows-1251") + "<a>\xC6</a>",
        "\xFF\xFE<\0a\0>\0\xAC\x20\x3D\xD8\x00\xDE<\0/\0a\0>\0"s,
        "\xFE\xFF\0<\0a\0>\x20\xAC\xD8\x3D\xDE\x00\0<\0/\0a\0>"s,
        test::widened(declared("UTF-16") + "<a>x\r\ny</a>", true),
        test::widened(declared("utf-16BE") + "<a/>", false),
    };
    for (const std::string& row : rows)
        EXPECT_EQ(rewritten(row), row);
    EXPECT_EQ(rewritten("<\0a\0/\0>\0"s), "\xFF\xFE<\0a\0/\0>\0"s) << "a missing mark is added";
}

TEST(XmlWrite, FallsBackToUtf8WhereNoReferenceMayStand) {
    for (const char* content :
         {"<€/>", "<a €=\"\"/>", "<a><!--€--></a>", "<a><?p €?></a>", "<a><![CDATA[€]]></a>"}) {
        pugi::xml_document document;
        ASSERT_TRUE(readXml(declared("utf-8") + content, document).ok);
        EXPECT_EQ(writeXml(document, TextEncoding::latin1),
                  declared("UTF-8").replace(30, 5, "utf-8") + content);
        document.first_child().attribute("encoding") = "ISO-8859-1";
        EXPECT_EQ(writeXml(document, TextEncoding::latin1), declared("UTF-8") + content);
    }
}

TEST(XmlWrite, TheDeclarationNamesWhatIsWritten) {
    pugi::xml_document document;
    ASSERT_TRUE(readXml("<?xml version=\"1.0\" standalone=\"yes\"?><a>ä</a>", document).ok);
    EXPECT_EQ(writeXml(document), "<?xml version=\"1.0\" standalone=\"yes\"?><a>ä</a>");
    EXPECT_EQ(writeXml(document, TextEncoding::windows1252),
              "<?xml version=\"1.0\" encoding=\"windows-1252\" standalone=\"yes\"?><a>\xE4</a>");
    document.remove_child(document.first_child());
    EXPECT_EQ(writeXml(document, TextEncoding::windows1252), "<a>ä</a>") << "nothing would tell the encoding";
}

// The sizes cross the borders of the writer's internal pieces.
TEST(XmlWrite, LongTextsAndManyElements) {
    for (const std::size_t length : {252U, 253U, 254U, 255U, 256U, 300U, 32'760U, 32'768U, 100'000U}) {
        const std::string text(length, 'x');
        const std::string bytes = "<a b=\"" + text + "\" " + text + "=\"&lt;" + text + "\">" + text +
                                  "&amp;<!--" + text + "--></a>";
        EXPECT_TRUE(rewritten(bytes) == bytes) << length;
    }
    // Longer than what one thread writes, with all kinds of nodes at the borders between them.
    std::string many = declared("utf-8") + "<!-- before --><a b=\"c\">";
    for (int i = 0; i < 1'500; ++i)
        many += "<b c=\"" + std::to_string(i) + "\"/>text<!--d--><?p i?>&gt;<e><f>g</f></e><![CDATA[>]]>";
    many += "</a><!-- after -->";
    EXPECT_TRUE(rewritten(many) == many);
    EXPECT_TRUE(rewritten(many + "<?€?>") == many + "<?€?>");
    pugi::xml_document document;
    ASSERT_TRUE(readXml(many, document).ok);
    EXPECT_TRUE(writeXmlLines(document) == splitTagsOnLines(many));
    const test::TemporaryFolder folder;
    const auto files = systemFileOperations();
    for (const TextEncoding encoding :
         {TextEncoding::utf8, TextEncoding::utf16BigEndian, TextEncoding::latin1}) {
        saveXmlLines(*files, folder.file("a.xml"), document, encoding);
        EXPECT_TRUE(folder.read("a.xml") == writeXmlLines(document, encoding));
    }
    document.document_element().child("b").set_name("€"); // somewhere in the middle of it
    EXPECT_TRUE(writeXml(document, TextEncoding::latin1).starts_with(declared("utf-8")));
}

// Nodes that a program has filled with what XML cannot hold as it stands.
TEST(XmlWrite, WhatIsWrittenCanBeRead) {
    pugi::xml_document document;
    pugi::xml_node root = document.append_child("a");
    root.append_attribute("b") = "\x01\x1F cut \xC3 no \xEF\xBF\xBF end";
    root.append_child(pugi::node_comment).set_value("a--b---\x02");
    root.append_child(pugi::node_cdata).set_value("]]>]]>");
    root.append_child(pugi::node_pi).set_name("p");
    root.last_child().set_value("x?>y");
    root.append_child(pugi::node_pcdata).set_value("]]>\x0B");
    root.append_child("c").append_child(pugi::node_pcdata).set_value("");
    root.append_child("d").append_child(pugi::node_pcdata).set_value(" ");
    const std::string bytes = writeXml(document);
    EXPECT_EQ(
        bytes,
        "<a b=\" cut \uFFFD no \uFFFD end\"><!--a- -b- - - --><![CDATA[]]]]><![CDATA[>]]]]><![CDATA[>]]>"
        "<?p x? >y?>]]&gt;<c/><d>&#32;</d></a>");
    EXPECT_EQ(rewritten(bytes), bytes);
}

TEST(NodeText, ReadsAndReplaces) {
    pugi::xml_document document;
    ASSERT_TRUE(readXml("<a b=\"1\">x<c>y<![CDATA[<]]></c><!-- no -->z</a>", document).ok);
    EXPECT_EQ(nodeText(document.document_element()), "xy<z");
    setNodeText(document.document_element(), "1\r\n2\r3\n& --");
    EXPECT_EQ(writeXml(document), "<a b=\"1\">1\r\n2\r\n3\r\n&amp; --</a>");
    setNodeText(document.document_element(), "");
    EXPECT_EQ(writeXml(document), "<a b=\"1\"/>");
    EXPECT_EQ(commentText("-a--b-\x07-"), "-a- -b- - ");
}

TEST(TagLines, EveryTagOnALineOfItsOwn) {
    const struct {
        std::string bytes;
        std::string lines;
    } rows[] = {
        {"", ""},
        {"<a/>", "<a/>\r\n"},
        {"<a/>\r\n", "<a/>\r\n"},
        {"<a><b/></a>", "<a>\r\n<b/>\r\n</a>\r\n"},
        {"<a>x<b/>y</a>", "<a>x<b/>y</a>\r\n"},
        {"<!--<x><y>--><a><![CDATA[><]]></a>", "<!--<x>\r\n<y>-->\r\n<a>\r\n<![CDATA[>\r\n<]]>\r\n</a>\r\n"},
        {"<a>\r\n<b/>\n</a>", "<a>\r\n<b/>\n</a>\r\n"},
        {"<a>\n", "<a>\n\r\n"},
        {">><<", ">>\r\n<<\r\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(splitTagsOnLines(row.bytes), row.lines);
        EXPECT_EQ(splitTagsOnLines(row.lines), row.lines) << "twice";
        if (row.bytes.starts_with("<a")) {
            for (const bool littleEndian : {true, false})
                EXPECT_EQ(splitTagsOnLines(test::widened(row.bytes, littleEndian)),
                          test::widened(row.lines, littleEndian));
        }
    }
    // The halves of two other characters look like "><" at an odd place.
    const std::string odd = "\xFE\xFF\x30\0\x3E\0\x3C\x30"s;
    EXPECT_EQ(splitTagsOnLines(odd), odd + "\0\r\0\n"s);
}

TEST(TagLines, SavingAgainGivesTheSameBytes) {
    std::vector<test::XmlSample> samples = test::plainSamples();
    samples.push_back({"tags in every place",
                       "<!DOCTYPE a [<!ELEMENT a ANY><!ENTITY e '><><'>]><!-->< <x><y>--><?p ><?><a "
                       "b=\">&lt;\">><!---->&gt;"
                       "<![CDATA[><]]><![CDATA[>]]></a>",
                       test::Verdict::accepted});
    for (const test::XmlSample& sample : samples) {
        pugi::xml_document document;
        if (!readXml(sample.bytes, document).ok)
            continue;
        const std::string saved = splitTagsOnLines(writeXml(document));
        EXPECT_EQ(writeXmlLines(document), saved) << sample.name;
        EXPECT_EQ(writeXmlLines(document, TextEncoding::utf16LittleEndian),
                  splitTagsOnLines(writeXml(document, TextEncoding::utf16LittleEndian)));
        ASSERT_TRUE(readXml(saved, document).ok) << sample.name << "\n" << saved;
        EXPECT_EQ(splitTagsOnLines(writeXml(document)), saved) << sample.name;
    }
}
