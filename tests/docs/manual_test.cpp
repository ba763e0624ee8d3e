// The manual hangs together, and says what the program does.
#include "base/atomic_file.h"
#include "base/paths.h"
#include "base/xml_file.h"
#include "shell/command_line.h"
#include "shortcut_list/shortcut_list.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <regex>
#include <set>

using namespace quillset;

namespace {

const std::string docs = QUILLSET_DOCS;

std::string page(const std::string& name) {
    std::string text = readWholeFile(joinPath(docs, name));
    std::erase(text, '\r');
    return text;
}

/// The targets of all links and pictures of a Markdown text, those into the network left out.
std::vector<std::string> targetsIn(const std::string& markdown) {
    static const std::regex link(R"(\]\(([^)\s]+)\))");
    std::vector<std::string> targets;
    for (auto at = std::sregex_iterator(markdown.begin(), markdown.end(), link); at != std::sregex_iterator();
         ++at)
        if (const std::string target = (*at)[1]; target.find("://") == std::string::npos)
            targets.push_back(target);
    return targets;
}

std::set<std::string> filesIn(const std::string& folder, const std::string& ending) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(toPath(folder)))
        if (const std::string name = toText(entry.path().filename()); name.ends_with(ending))
            names.insert(name);
    return names;
}

} // namespace

TEST(Manual, EveryLinkLeadsSomewhereAndEveryPageIsReached) {
    std::set<std::string> reached{"index.md"};
    std::set<std::string> pictures;
    for (std::deque<std::string> open{"index.md"}; !open.empty(); open.pop_front()) {
        for (const std::string& target : targetsIn(page(open.front()))) {
            EXPECT_TRUE(fileExists(joinPath(docs, target))) << open.front() << " leads to " << target;
            if (target.ends_with(".png"))
                pictures.insert(target.substr(target.rfind('/') + 1));
            else if (target.ends_with(".md") && reached.insert(target).second)
                open.push_back(target);
        }
    }
    EXPECT_EQ(reached, filesIn(docs, ".md"));
    EXPECT_EQ(pictures, filesIn(joinPath(docs, "pictures"), ".png")) << "pictures that no page shows";
    for (const std::string& target : targetsIn(readWholeFile(QUILLSET_README)))
        EXPECT_TRUE(fileExists(joinPath(folderOf(docs), target)) ||
                    folderExists(joinPath(folderOf(docs), target)))
            << "the README leads to " << target;
}

TEST(Manual, ShowsTheCommandsThatTheProgramHas) {
    const std::string text = page("shortcuts.md");
    const std::string begin = "tools/update-manual -->\n";
    const std::size_t from = text.find(begin);
    const std::size_t to = text.find("<!-- end of the tables -->");
    ASSERT_NE(from, std::string::npos);
    ASSERT_NE(to, std::string::npos);
    EXPECT_EQ(text.substr(from + begin.size(), to - from - begin.size()), shortcutList())
        << "run tools/update-manual";
}

TEST(Manual, DescribesEveryOptionOfTheCommandLine) {
    const std::string help = helpText();
    const std::string text = page("command-line.md");
    static const std::regex option("--[a-z][a-z-]+");
    std::size_t found = 0;
    for (auto at = std::sregex_iterator(help.begin(), help.end(), option); at != std::sregex_iterator();
         ++at, ++found)
        EXPECT_NE(text.find(at->str()), std::string::npos) << at->str();
    EXPECT_GT(found, 8U);
    for (auto at = std::sregex_iterator(text.begin(), text.end(), option); at != std::sregex_iterator(); ++at)
        EXPECT_NE(help.find(at->str()), std::string::npos) << at->str() << " is no option of the program";
}

#ifdef QUILLSET_MANUAL
// Read with the strict parser of scenery files: a browser would forgive everything.
TEST(Manual, TheBuiltPagesAreWholeAndNeedNoNetwork) {
    const std::string built = QUILLSET_MANUAL;
    const std::set<std::string> pages = filesIn(built, ".html");
    EXPECT_TRUE(pages.contains("index.html"));
    for (const std::string& name : filesIn(docs, ".md"))
        EXPECT_TRUE(pages.contains(name.substr(0, name.size() - 3) + ".html")) << name;
    for (const std::string& name : pages) {
        pugi::xml_document document;
        const XmlRead read = readXmlFile(joinPath(built, name), document);
        EXPECT_TRUE(read.ok) << name << ": " << read.problem;
        for (const char* const query : {"//a/@href", "//img/@src", "//link/@href"})
            for (const pugi::xpath_node& node : document.select_nodes(query))
                EXPECT_TRUE(fileExists(joinPath(built, node.attribute().value())))
                    << name << " needs " << node.attribute().value();
        EXPECT_FALSE(document.select_node("//img[not(@alt) or @alt='']"))
            << name << ": a picture without words";
        EXPECT_FALSE(document.select_nodes("//table|//h1").empty()) << name;
    }
}
#endif
