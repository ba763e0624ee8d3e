#include "base/atomic_file.h"
#include "base/runtime_error.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <windows.h>

using namespace quillset;

namespace {

// Another program's open file.
class OpenElsewhere {
public:
    OpenElsewhere(const std::string& path, DWORD sharing)
        : file_(CreateFileW(toPath(path).wstring().c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0,
                            nullptr)) {}
    ~OpenElsewhere() { CloseHandle(file_); }
    OpenElsewhere(const OpenElsewhere&) = delete;
    OpenElsewhere& operator=(const OpenElsewhere&) = delete;
    [[nodiscard]] bool isOpen() const { return file_ != INVALID_HANDLE_VALUE; }

private:
    HANDLE file_;
};

} // namespace

TEST(AtomicFile, AFileThatAnotherProgramHoldsStaysWhole) {
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.xml", "old");
    const auto files = systemFileOperations();
    {
        const OpenElsewhere reader(path, FILE_SHARE_READ);
        ASSERT_TRUE(reader.isOpen());
        try {
            writeFileAtomically(*files, path, "new");
            ADD_FAILURE() << "replaced a file that must not be deleted";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), static_cast<int>(ErrorNumber::permissionDenied)) << error.what();
            EXPECT_NE(std::string(error.what()).find(path), std::string::npos) << error.what();
        }
        EXPECT_EQ(readWholeFile(path), "old");
    }
    std::filesystem::directory_iterator entries(toPath(folder.path()));
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << "the working copy is gone";
    const OpenElsewhere tolerant(path, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    writeFileAtomically(*files, path, "new");
    EXPECT_EQ(readWholeFile(path), "new");
}
