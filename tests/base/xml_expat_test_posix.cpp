#include "base/xml_file.h"
#include "expat_peer.h"
#include "xml_samples.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace quillset;
using test::ExpatVerdict;

namespace {

// Refusals of ours that Expat does not share, told by their words.
bool isOurOwnRefusal(const std::string& problem) {
    constexpr const char* words[] = {
        "is not one of those that every XML file may use", // entities of the document's own
        "the XML version",                                 // Expat takes any
        "contradicts the UTF-8 mark",                      // Expat lets the declaration win
    };
    return std::any_of(std::begin(words), std::end(words),
                       [&](const char* part) { return problem.find(part) != std::string::npos; });
}

// A document that holds a little of everything, for mutations.
const char* const seeds[] = {
    "<?xml version=\"1.0\" standalone=\"no\"?><!-- c --><a b=\"1\" c='&lt;'>x<d/>&#65;<![CDATA[y]]><?p "
    "q?></a>",
    "<FSData version=\"9.0\" xmlns:x=\"u\" x:n=\"b\"><!--Object 1--><x:o lat=\"52\" "
    "x:lat=\"5\"><e/></x:o></FSData>",
    "<!DOCTYPE a PUBLIC \"p\" 's' [<!ELEMENT a (b,(c|d)*)?><!ATTLIST a b (x|y) 'x' c CDATA #FIXED "
    "\"\">]><a/>",
    "<!DOCTYPE a [<!ENTITY e 'v&#65;'><!ENTITY f SYSTEM 'g' NDATA n><!NOTATION n PUBLIC 'p'><!-- - "
    "-->]><a>ä</a>",
    "<a xmlns=\"u\"><p:b xmlns:p=\"v\" p:c=\"\" xml:lang=\"\"><p:d xmlns:p=\"w\"/></p:b>]] > "
    "&amp;&quot;</a>\r\n",
};

const char* const pieces[] = {
    "<",  ">",  "/",  "&",   ";",    "\"",    "'",           "=",        " ",        "-",   "--",   "!",
    "?",  "[",  "]",  "(",   ")",    "|",     ",",           "*",        "%",        "#",   ":",    "a",
    "b",  "x",  "0",  "9",   "\n",   "\r",    "\x01",        "\x80",     "\xC3\xA9", "]]>", "<!--", "-->",
    "<?", "?>", "/>", "<a>", "</a>", "xmlns", "xmlns:p='u'", " b=\"1\"", "&#x",      "&lt;"};

std::string mutated(std::string text, std::mt19937& random) {
    const auto below = [&random](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    for (std::size_t changes = 1 + below(2); changes > 0 && !text.empty(); --changes) {
        const std::size_t at = below(text.size());
        const char* const piece = pieces[below(std::size(pieces))];
        switch (below(4)) {
        case 0:
            text.insert(at, piece);
            break;
        case 1:
            text.erase(at, 1 + below(4));
            break;
        case 2:
            text.replace(at, 1, piece);
            break;
        default:
            text.insert(below(text.size()), text.substr(at, 1 + below(20)));
        }
    }
    return text;
}

} // namespace

TEST(XmlAgainstExpat, SamplesHaveTheSameVerdict) {
    auto samples = test::plainSamples();
    for (auto& sample : test::encodedSamples())
        samples.push_back(sample);
    for (const auto& sample : samples) {
        const bool accepted = test::askExpat(sample.bytes).accepted;
        const bool wanted =
            sample.verdict == test::Verdict::accepted || sample.verdict == test::Verdict::refusedByUs;
        EXPECT_EQ(accepted, wanted) << sample.name;
    }
}

TEST(XmlAgainstExpat, WrittenDocumentsSayTheSame) {
    auto samples = test::plainSamples();
    for (auto& sample : test::encodedSamples())
        samples.push_back(sample);
    for (const auto& sample : samples) {
        pugi::xml_document document;
        const XmlRead read = readXml(sample.bytes, document);
        const ExpatVerdict original = test::askExpat(sample.bytes);
        if (!read.ok || !original.accepted)
            continue;
        EXPECT_EQ(test::askExpat(writeXml(document, read.encoding)).events, original.events) << sample.name;
        EXPECT_EQ(test::askExpat(writeXml(document, TextEncoding::utf16BigEndian)).events, original.events)
            << sample.name;
    }
}

TEST(XmlAgainstExpat, MutatedDocumentsHaveTheSameVerdict) {
    std::mt19937 random(20040911);
    int acceptedByBoth = 0;
    int refusedByBoth = 0;
    int ourOwn = 0;
    for (int i = 0; i < 60'000; ++i) {
        std::string text = mutated(seeds[static_cast<std::size_t>(i) % std::size(seeds)], random);
        pugi::xml_document document;
        const XmlRead read = readXml(text, document);
        const ExpatVerdict expat = test::askExpat(text);
        if (read.ok != expat.accepted && !read.ok && isOurOwnRefusal(read.problem)) {
            ++ourOwn;
            continue;
        }
        ASSERT_EQ(read.ok, expat.accepted)
            << text << "\nours: " << read.problem << "\nExpat: " << expat.error;
        ++(read.ok ? acceptedByBoth : refusedByBoth);
        if (read.ok) {
            ASSERT_EQ(test::askExpat(writeXml(document)).events, expat.events) << text;
        }
    }
    EXPECT_GT(acceptedByBoth, 3'000);
    EXPECT_GT(refusedByBoth, 5'000);
    EXPECT_LT(ourOwn, 3'000);
}
