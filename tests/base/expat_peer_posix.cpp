#include "expat_peer.h"

#include <expat.h>
#include <iconv.h>
#include <memory>
#include <utility>

namespace quillset::test {

namespace {

struct Recorder {
    std::string events;
    std::string text;

    void flushText() {
        if (text.find_first_not_of(" \t\r\n") != std::string::npos)
            events += "text " + text + "\n";
        text.clear();
    }
    void add(const std::string& event) {
        flushText();
        events += event + "\n";
    }
};

Recorder& of(void* data) {
    return *static_cast<Recorder*>(data);
}

void onStart(void* data, const XML_Char* name, const XML_Char** attributes) {
    std::string event = std::string("start ") + name;
    for (; *attributes != nullptr; attributes += 2)
        event += std::string(" [") + attributes[0] + "=" + attributes[1] + "]";
    of(data).add(event);
}

void onEnd(void* data, const XML_Char* name) {
    of(data).add(std::string("end ") + name);
}

void onText(void* data, const XML_Char* text, int length) {
    of(data).text.append(text, static_cast<std::size_t>(length));
}

void onComment(void* data, const XML_Char* text) {
    of(data).add(std::string("comment ") + text);
}

void onInstruction(void* data, const XML_Char* target, const XML_Char* text) {
    of(data).add(std::string("instruction ") + target + " " + text);
}

void onCharacterDataStart(void* data) {
    of(data).flushText();
}

void onCharacterDataEnd(void* data) {
    const std::string text = std::exchange(of(data).text, {});
    of(data).add("character data " + text);
}

int onUnknownEncoding(void*, const XML_Char* name, XML_Encoding* info) {
    const iconv_t converter = ::iconv_open("UTF-32LE", name);
    if (converter == reinterpret_cast<iconv_t>(-1))
        return XML_STATUS_ERROR;
    for (int byte = 0; byte < 256; ++byte) {
        char in = static_cast<char>(byte);
        char* inAt = &in;
        std::size_t inLeft = 1;
        unsigned char out[8] = {};
        char* outAt = reinterpret_cast<char*>(out);
        std::size_t outLeft = sizeof out;
        const bool known =
            ::iconv(converter, &inAt, &inLeft, &outAt, &outLeft) != static_cast<std::size_t>(-1);
        // Bytes that Windows leaves open stand for the control characters of that number.
        const int open = byte >= 0x80 && byte < 0xA0 ? byte : -1;
        info->map[byte] = known ? out[0] | out[1] << 8 | out[2] << 16 : open;
    }
    ::iconv_close(converter);
    info->convert = nullptr;
    info->release = nullptr;
    return XML_STATUS_OK;
}

} // namespace

ExpatVerdict askExpat(std::string_view bytes) {
    const std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser(XML_ParserCreateNS(nullptr, '!'),
                                                                         &XML_ParserFree);
    Recorder recorder;
    XML_SetUserData(parser.get(), &recorder);
    XML_SetElementHandler(parser.get(), onStart, onEnd);
    XML_SetCharacterDataHandler(parser.get(), onText);
    XML_SetCommentHandler(parser.get(), onComment);
    XML_SetProcessingInstructionHandler(parser.get(), onInstruction);
    XML_SetCdataSectionHandler(parser.get(), onCharacterDataStart, onCharacterDataEnd);
    XML_SetUnknownEncodingHandler(parser.get(), onUnknownEncoding, nullptr);
    const bool accepted =
        XML_Parse(parser.get(), bytes.data(), static_cast<int>(bytes.size()), XML_TRUE) == XML_STATUS_OK;
    recorder.flushText();
    return {accepted, accepted ? "" : XML_ErrorString(XML_GetErrorCode(parser.get())), recorder.events};
}

} // namespace quillset::test
