// Any bytes through the BGL reader: it prints or says what is damaged, and its output stays in proportion.

#include "fuzz_input.h"
#include "listing.h"

#include <sstream>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    bgl_list::MemorySource source(quillset::test::fuzzBytes(data, size));
    std::ostringstream out;
    try {
        bgl_list::list(source, out);
    } catch (const bgl_list::Damage&) {
        return 0;
    }
    quillset::test::require(!out.str().empty());
    return 0;
}
