#include "base/program_folder.h"
#include "base/user_folder.h"
#include "support/temporary_folder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace quillset;

namespace {

// Sets an environment variable for the length of a test.
class Environment {
public:
    Environment(const char* name, const std::string& value)
        : name_(name)
        , had_(std::getenv(name) != nullptr)
        , old_(had_ ? std::getenv(name) : "") {
        ::setenv(name, value.c_str(), 1);
    }
    ~Environment() {
        if (had_)
            ::setenv(name_, old_.c_str(), 1);
        else
            ::unsetenv(name_);
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    const char* name_;
    bool had_;
    std::string old_;
};

} // namespace

TEST(InstanceFolder, IsFreeAgainAfterACrash) {
    const test::TemporaryFolder folder;
    const pid_t child = ::fork();
    if (child == 0) {
        const InstanceFolder held(folder.path());
        ::_exit(held.path() == folder.path() ? 0 : 1); // without any clean-up
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(folder.has(".quillset-instance.lock")) << "the crash has left it";
    EXPECT_EQ(InstanceFolder(folder.path()).path(), folder.path());
}

TEST(UserFolder, FollowsTheEnvironment) {
    const Environment home("HOME", "/home/someone");
    {
        const Environment data("XDG_DATA_HOME", "/data");
        EXPECT_EQ(userDataFolder(), "/data/quillset-xml");
    }
    const Environment relative("XDG_DATA_HOME", "relative");
    EXPECT_EQ(userDataFolder(), "/home/someone/.local/share/quillset-xml");
}
