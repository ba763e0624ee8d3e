#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillset::test {

using namespace std::string_literals;

enum class Verdict {
    accepted,
    refused,
    /// Refused by us on purpose, though a parser that implements entities or newer numbering accepts it.
    refusedByUs,
    /// Accepted by us on purpose: names follow the fifth edition of XML 1.0, which Expat does not know.
    acceptedByUs,
};

struct XmlSample {
    const char* name;
    std::string bytes;
    Verdict verdict;
    /// Part of the problem's text; empty where the words do not matter.
    const char* problem = "";
};

inline std::string nested(std::size_t depth) {
    std::string text;
    for (std::size_t i = 0; i < depth; ++i)
        text += "<a>";
    for (std::size_t i = 0; i < depth; ++i)
        text += "</a>";
    return text;
}

inline std::string withDoctype(const std::string& subset) {
    return "<!DOCTYPE a [" + subset + "]><a/>";
}

/// Texts in UTF-8, without mark and without an encoding declared: each can be tried in UTF-16 too.
inline std::vector<XmlSample> plainSamples() {
    using enum Verdict;
    return {
        {"smallest", "<a/>", accepted},
        {"prolog and epilog", "<?xml version=\"1.0\"?>\r\n<!-- c --><?p i?>\n<a></a>\n<!-- e --><?q?>\n",
         accepted},
        {"single quotes", "<?xml version='1.0' standalone='yes' ?><a b='\"' c=\"'\"/>", accepted},
        {"newer minor version", "<?xml version=\"1.1\"?><a/>", accepted},
        {"space in tags", "<a  b = \"1\"\n\tc\r=\r\n'2' ><d /></a >", accepted},
        {"character data", "<a>x<![CDATA[ <b> & ]] ]>]]>y]]z> ]></a>", accepted},
        {"empty character data", "<a><![CDATA[]]></a>", accepted},
        {"references", "<a b=\"&lt;&amp;&#10;&#x20AC;&quot;\">&apos;&gt;&#x10FFFF;&#00000065;</a>", accepted},
        {"greater sign in a value", "<a b=\"x > y\">a > b</a>", accepted},
        {"beyond ASCII", "<Öl é=\"ß\">日本 😀 \xC2\x85\xC2\xA0</Öl>", accepted},
        {"names", "<_a-b.c1 d-.=\"\"/>", accepted},
        {"instruction that begins like xml", "<?xml-stylesheet href='a'?><a/>", accepted},
        {"instruction with question marks", "<a><?p ??x? ?></a>", accepted},
        {"instruction with space only", "<a><?p   ?></a>", accepted},
        {"comment with single hyphens", "<a><!-- - -a- --><!----></a>", accepted},
        {"mark as a character", "<a>\xEF\xBB\xBF</a>", accepted},
        {"delete character", "<a>\x7F</a>", accepted},

        {"white space only", " \n", refused, "no element"},
        {"text only", "hello", refused, "text before"},
        {"prolog only", "<?xml version=\"1.0\"?>", refused, "no element"},
        {"two roots", "<a/><b/>", refused, "Line 1, column 5: only comments may follow"},
        {"text after the root", "<a/>x", refused},
        {"text before the root", "x<a/>", refused},
        {"never closed", "<a><b></b>", refused, "element \"a\" is still open"},
        {"cut in a tag", "<a b=\"1\"", refused, "within a tag"},
        {"cut in a value", "<a b=\"1", refused, "not closed"},
        {"cut in a comment", "<a><!-- x", refused, "a comment is not closed"},
        {"cut in character data", "<a><![CDATA[x]]", refused, "a CDATA section is not closed"},
        {"cut in an instruction", "<a><?p ?", refused},
        {"wrong end tag", "<a>\n <b>\n</a>", refused,
         "Line 3, column 1: the end tag does not match the start tag of \"b\""},
        {"end tag first", "</a>", refused},
        {"space before a name", "< a/>", refused},
        {"name begins with a digit", "<1a/>", refused},
        {"name with a wrong letter", "<a\xC3\x97/>", refused, "U+00D7"},
        {"attribute twice", "<a b=\"1\" c=\"2\" b=\"1\"/>", refused,
         "column 16: the attribute \"b\" stands twice"},
        {"attribute without value", "<a b/>", refused, "\"=\" is missing"},
        {"attribute without quotes", "<a b=1/>", refused, "not quoted"},
        {"attributes without space", "<a b=\"1\"c=\"2\"/>", refused, "white space is missing"},
        {"less in a value", "<a b=\"<\"/>", refused, "&lt;"},
        {"bare ampersand", "<a>a & b</a>", refused, "&amp;"},
        {"unknown entity", "<a>&nbsp;</a>", refused, "\"nbsp\""},
        {"unknown entity in a value", "<a b=\"&nbsp;\"/>", refused, "\"nbsp\""},
        {"reference to zero", "<a>&#0;</a>", refused, "does not allow"},
        {"reference to a surrogate", "<a>&#xD800;</a>", refused},
        {"reference out of range", "<a>&#x110000;</a>", refused},
        {"reference far out of range", "<a>&#99999999999999999999;</a>", refused},
        {"control character", "<a>\x01</a>", refused, "U+0001"},
        {"zero byte", "<a>\0</a>"s, refused, "U+0000"},
        {"no character", "<a>\xEF\xBF\xBE</a>", refused, "U+FFFE"},
        {"end of character data in text", "<a>]]></a>", refused, "]]>"},
        {"two hyphens in a comment", "<a><!-- a -- b --></a>", refused, "\"--\""},
        {"unknown markup", "<a><!ELEMENT b ANY></a>", refused},
        {"declaration twice", "<?xml version=\"1.0\"?><?xml version=\"1.0\"?><a/>", refused,
         "at the very start only"},
        {"declaration after space", " <?xml version=\"1.0\"?><a/>", refused, "at the very start only"},
        {"declaration without version", "<?xml encoding=\"UTF-8\"?><a/>", refused, "begin with the version"},
        {"declaration in another order", "<?xml version=\"1.0\" standalone=\"no\" encoding=\"UTF-8\"?><a/>",
         refused},
        {"standalone maybe", "<?xml version=\"1.0\" standalone=\"maybe\"?><a/>", refused},
        {"later version", "<?xml version=\"2.0\"?><a/>", refusedByUs, "version \"2.0\""},
        {"instruction without name", "<a><? x?></a>", refused},
        {"instruction named xml in mixed case", "<a><?xMl x?></a>", refused, "reserved"},
        {"name of the fifth edition", "<a\xE2\x80\xBF/>", acceptedByUs},

        {"prefixes", "<p:a xmlns:p=\"u\" p:b=\"1\" b=\"2\"><p:c/></p:a>", accepted},
        {"prefix declared after its use", "<p:a p:b=\"1\" xmlns:p=\"u\"/>", accepted},
        {"predeclared prefix", "<a xml:lang=\"en\" xmlns:xml=\"http://www.w3.org/XML/1998/namespace\"/>",
         accepted},
        {"default namespace and none again", "<a xmlns=\"u\"><b xmlns=\"\"/></a>", accepted},
        {"prefix declared anew", "<a xmlns:p=\"u\"><b xmlns:p=\"v\" p:c=\"\"/><p:d/></a>", accepted},
        {"same name in two namespaces", "<a xmlns:p=\"u\" xmlns:q=\"v\" p:b=\"\" q:b=\"\"/>", accepted},
        {"element prefix not declared", "<p:a/>", refused, "prefix \"p\" is not declared"},
        {"attribute prefix not declared", "<a xsi:b=\"\"/>", refused, "prefix \"xsi\" is not declared"},
        {"prefix out of scope", "<a><b xmlns:p=\"u\"/><p:c/></a>", refused, "prefix \"p\""},
        {"same expanded name twice", "<a xmlns:p=\"u\" xmlns:q=\"u\" p:b=\"\" q:b=\"\"/>", refused,
         "two prefixes"},
        {"same expanded name by reference", "<a xmlns:p=\"u&amp;v\" xmlns:q=\"u&#x26;v\" p:b=\"\" q:b=\"\"/>",
         refused},
        {"declaration of a prefix twice", "<a xmlns:p=\"u\" xmlns:p=\"v\"/>", refused},
        {"prefix taken back", "<a xmlns:p=\"u\"><b xmlns:p=\"\"/></a>", refused, "empty name"},
        {"prefix xml for another name", "<a xmlns:xml=\"u\"/>", refused},
        {"name of xml for another prefix", "<a xmlns:p=\"http://www.w3.org/XML/1998/namespace\"/>", refused},
        {"two colons", "<a:b:c xmlns:a=\"u\"/>", refused, "more than one colon"},
        {"colon first", "<:a/>", refused},
        {"instruction with a colon", "<a><?p:q x?></a>", refused},

        {"document type", "<!DOCTYPE a><a/>", accepted},
        {"document type of another name", "<!DOCTYPE p:b ><a/>", accepted},
        {"external document type", "<!DOCTYPE a SYSTEM \"b'c.dtd\" ><a/>", accepted},
        {"public document type", "<!DOCTYPE a PUBLIC '-//X//Y Z//EN'\n\"b.dtd\"[]><a/>", accepted},
        {"elements",
         withDoctype("<!ELEMENT a EMPTY><!ELEMENT b ANY ><!ELEMENT c (#PCDATA)><!ELEMENT d (#PCDATA)*>"),
         accepted},
        {"mixed elements", withDoctype("<!ELEMENT a ( #PCDATA | b|p:c )*>"), accepted},
        {"groups", withDoctype("<!ELEMENT a (b)><!ELEMENT b ((c|d)+,( e , f? )*,(g))?>"), accepted},
        {"attribute lists",
         withDoctype("<!ATTLIST a b CDATA #REQUIRED c ID #IMPLIED\n d NMTOKENS 'x &lt; y'>"), accepted},
        {"enumerations",
         withDoctype("<!ATTLIST a b (x|-1 | :y) \"x\" c NOTATION (n) #FIXED 'n'><!ATTLIST b>"), accepted},
        {"entities",
         withDoctype("<!ENTITY e 'a<b>&x;&#65;'><!ENTITY f SYSTEM 'f' NDATA n ><!ENTITY % g \"\">"),
         accepted},
        {"external entities", withDoctype("<!ENTITY e PUBLIC \"p\" 's'><!ENTITY % f SYSTEM ''>"), accepted},
        {"notations",
         withDoctype("<!NOTATION n SYSTEM 's'><!NOTATION m PUBLIC 'p'><!NOTATION o PUBLIC 'p' 's' >"),
         accepted},
        {"parameter entity", withDoctype(" %p; "), accepted},
        {"comments in a document type", withDoctype("<!-- ' ]> --><?p ' ]> ?>"), accepted},
        {"predefined entity declared", "<!DOCTYPE a [<!ENTITY lt '&#38;#60;'>]><a>&lt;</a>", accepted},
        {"own entity used", "<!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>", refusedByUs, "\"e\""},
        {"own entity used in a value", "<!DOCTYPE a [<!ENTITY e 'x'>]><a b='&e;'/>", refusedByUs, "\"e\""},
        {"entity of the external document type", "<!DOCTYPE a SYSTEM 'x'><a>&e;</a>", refusedByUs, "\"e\""},
        {"prefix declared in the document type", "<!DOCTYPE a [<!ATTLIST a xmlns:p CDATA 'u'>]><a p:b=''/>",
         refusedByUs},
        {"document type twice", "<!DOCTYPE a><!DOCTYPE a><a/>", refused},
        {"document type after the root", "<a/><!DOCTYPE a>", refused},
        {"document type not closed", "<!DOCTYPE a [<a/>", refused},
        {"subset not closed", "<!DOCTYPE a [<!ELEMENT a ANY>", refused, "not closed"},
        {"public identifier alone", "<!DOCTYPE a PUBLIC 'p'><a/>", refused},
        {"wrong public identifier", "<!DOCTYPE a PUBLIC '{' 's'><a/>", refused},
        {"text in the subset", withDoctype("x"), refused},
        {"element without content", withDoctype("<!ELEMENT a>"), refused},
        {"element with empty group", withDoctype("<!ELEMENT a ()>"), refused},
        {"element with mixed separators", withDoctype("<!ELEMENT a (b,c|d)>"), refused},
        {"attribute of unknown type", withDoctype("<!ATTLIST a b FOO #IMPLIED>"), refused},
        {"default with less", withDoctype("<!ATTLIST a b CDATA '<'>"), refused},
        {"entity with a colon", withDoctype("<!ENTITY a:e ''>"), refused},
        {"entity with a percent sign", withDoctype("<!ENTITY e '%f;'>"), refused},
        {"entity with a wrong reference", withDoctype("<!ENTITY e '&#0;'>"), refused},
        {"parameter entity with data", withDoctype("<!ENTITY % e SYSTEM 's' NDATA n>"), refused},
        {"conditional section", withDoctype("<![INCLUDE[<!ELEMENT a ANY>]]>"), refused},

        {"deepest element", nested(1000), accepted},
        {"beyond the deepest element", nested(1001), refusedByUs, "nested more than 1000 deep"},
    };
}

/// Bytes whose encoding matters.
inline std::vector<XmlSample> encodedSamples() {
    using enum Verdict;
    return {
        {"nothing", "", refused, "empty"},
        {"marked UTF-8", "\xEF\xBB\xBF<a/>", accepted},
        {"marked and declared UTF-8", "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?><a/>", accepted},
        {"mark alone", "\xEF\xBB\xBF", refused},
        {"Latin letters as UTF-8", "<a>\xE4</a>", refused, "not valid in the file's encoding"},
        {"cut character", "<a>\xC3</a>", refused},
        {"cut character at the end", "<a/><!--\xE2\x82", refused},
        {"overlong character", "<a>\xC0\x80</a>", refused},
        {"overlong longer character", "<a>\xE0\x80\xBC</a>", refused},
        {"surrogate in UTF-8", "<a>\xED\xA0\x80</a>", refused},
        {"character out of range", "<a>\xF4\x90\x80\x80</a>", refused},
        {"continuation alone", "<a b=\"\x80\"/>", refused},
        {"Latin letters", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE4\x85\xFF</a>", accepted},
        {"Latin letters, other case", "<?xml version='1.0' encoding='iso-8859-1' ?><\xE4 \xF6='\xDF'/>",
         accepted},
        {"ASCII", "<?xml version=\"1.0\" encoding=\"us-ascii\"?><a>&#228;</a>", accepted},
        {"Latin letters as ASCII", "<?xml version=\"1.0\" encoding=\"US-ASCII\"?><a>\xE4</a>", refused,
         "Byte 45"},
        {"Windows letters", "<?xml version=\"1.0\" encoding=\"Windows-1252\"?><a>\x80\x93\xE4\x81</a>",
         accepted},
        {"euro sign", "<?xml version=\"1.0\" encoding=\"ISO-8859-15\"?><a>\xA4</a>", accepted},
        {"Polish letters", "<?xml version=\"1.0\" encoding=\"windows-1250\"?><a>\xB9</a>", accepted},
        {"unknown encoding", "<?xml version=\"1.0\" encoding=\"klingon-8\"?><a/>", refused,
         "\"klingon-8\" is not supported"},
        {"wide encoding declared wrongly", "<?xml version=\"1.0\" encoding=\"UTF-16\"?><a/>", refused,
         "\"UTF-16\""},
        {"mark contradicts the declaration", "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-16\"?><a/>",
         refused},
        {"mark against Latin", "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a/>", refusedByUs,
         "contradicts"},
        {"UTF-32", "\xFF\xFE\0\0<\0\0\0a\0\0\0/\0\0\0>\0\0\0"s, refused, "UTF-32"},
        {"wide, little end first", "\xFF\xFE<\0a\0/\0>\0"s, accepted},
        {"wide, big end first", "\xFE\xFF\0<\0a\0/\0>"s, accepted},
        {"wide without mark", "<\0a\0/\0>\0"s, accepted},
        {"wide, cut in half", "\xFF\xFE<\0a\0/\0>\0 "s, refused, "cut in half"},
        {"wide with half a pair", "\xFF\xFE<\0a\0>\0\x3D\xD8<\0/\0a\0>\0"s, refused, "surrogate"},
        {"wide with a pair", "\xFF\xFE<\0a\0>\0\x3D\xD8\x00\xDE<\0/\0a\0>\0"s, accepted},
        {"binary",
         "\x7F"
         "ELF\x02\x01\x01\0\0\0"s,
         refused},
    };
}

/// ASCII text in UTF-16, with the mark.
inline std::string widened(std::string_view ascii, bool littleEndian) {
    std::string wide = littleEndian ? "\xFF\xFE" : "\xFE\xFF";
    for (const char c : ascii) {
        wide.push_back(littleEndian ? c : '\0');
        wide.push_back(littleEndian ? '\0' : c);
    }
    return wide;
}

} // namespace quillset::test
