#include "base/xml_pieces.h"

#include <algorithm>
#include <deque>
#include <future>
#include <string>
#include <thread>
#include <utility>

namespace quillset {

namespace {

/// Children of the root in one piece: enough to be worth a thread, few enough to share the work out evenly.
constexpr int batchSize = 4096;
constexpr unsigned mostThreads = 4; // by then the disk is what one waits for

struct Piece {
    std::string text;
    bool failed = false;
};

pugi::xml_node rootOf(const pugi::xml_node& node) {
    if (node.type() != pugi::node_document)
        return node;
    return node.find_child([](const pugi::xml_node& child) { return child.type() == pugi::node_element; });
}

// Where the batch that begins with `node` ends. The next one begins after a tag, so that its writer knows
// what its text follows.
pugi::xml_node batchEnd(pugi::xml_node node) {
    for (int count = 1; node; ++count, node = node.next_sibling()) {
        const bool isTag = node.type() == pugi::node_element || node.type() == pugi::node_comment;
        if (count >= batchSize && isTag)
            return node.next_sibling();
    }
    return {};
}

// `text` is memory to use again: fresh one would cost as much as what is done in it.
Piece pieceOf(std::string text, const pugi::xml_node& first, const pugi::xml_node& end, TextEncoding encoding,
              XmlWriter::Layout layout) {
    Piece piece{std::move(text)};
    piece.text.clear();
    XmlWriter writer([&piece](std::string_view more) { piece.text += more; }, encoding, layout);
    writer.writeAfterTag(first, end);
    piece.failed = writer.failed();
    return piece;
}

class SharedWriting {
public:
    SharedWriting(TextEncoding encoding, XmlWriter::Layout layout, const PieceSink& out)
        : encoding_(encoding)
        , layout_(layout)
        , frame_(out, encoding, layout) {}

    bool write(const pugi::xml_node& node, const pugi::xml_node& root) {
        if (node == root) {
            writeRoot(root);
        } else {
            for (const pugi::xml_node& child : node.children())
                child == root ? writeRoot(root) : frame_.writeNode(child);
        }
        frame_.finish();
        return !failed_ && !frame_.failed();
    }

private:
    void writeRoot(const pugi::xml_node& root) {
        const unsigned threads = std::clamp(std::thread::hardware_concurrency(), 1U, mostThreads);
        std::deque<std::future<Piece>> running; // no more at a time, so that memory stays small
        frame_.writeStartTag(root);
        std::string spare;
        pugi::xml_node next = root.first_child();
        while (next || !running.empty()) {
            while (next && running.size() <= threads) {
                const pugi::xml_node end = batchEnd(next);
                // Deferred where the system has no thread left to give.
                running.push_back(std::async(std::launch::async | std::launch::deferred, pieceOf,
                                             std::exchange(spare, {}), next, end, encoding_, layout_));
                next = end;
            }
            Piece piece = running.front().get();
            running.pop_front();
            failed_ = failed_ || piece.failed;
            frame_.append(piece.text);
            spare = std::move(piece.text);
        }
        frame_.writeEndTag(root);
    }

    TextEncoding encoding_;
    XmlWriter::Layout layout_;
    XmlWriter frame_;
    bool failed_ = false;
};

} // namespace

bool writeXmlPieces(const pugi::xml_node& node, TextEncoding encoding, XmlWriter::Layout layout,
                    const PieceSink& out) {
    const pugi::xml_node root = rootOf(node);
    if (root && batchEnd(root.first_child()))
        return SharedWriting(encoding, layout, out).write(node, root);
    XmlWriter writer(out, encoding, layout);
    writer.write(node);
    return !writer.failed();
}

} // namespace quillset
