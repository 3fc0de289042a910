#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "db/dialect/dialect.h"
#include "db/error.h"
#include "db/sqlite/textindex.h"
#include "db/sqlite/writer.h"

namespace {

/// Any text is translated or refused as a wrong statement.
template <typename Work>
void refusedOrDone(Work work) {
    try {
        work();
    } catch (const db::Error& error) {
        if (error.category() != db::Category::syntax) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    refusedOrDone([&] { db::sqlite::translate(text, "Hospital"); });
    refusedOrDone([&] { db::sqlite::readTextIndex(text); });
    refusedOrDone([&] { db::dialect::splitScript(text); });
    refusedOrDone([&] { db::dialect::parseProcedure(text); });
    return 0;
}
