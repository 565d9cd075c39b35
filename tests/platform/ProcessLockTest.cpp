// One holder per lock file, and none when the holder is gone.
#include "platform/ProcessLock.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
/// Another process that holds a lock until it is killed.
struct Holder {
    pid_t Process = -1;
    LockAnswer Answer = LockAnswer::Unavailable;

    explicit Holder(const std::string& path)
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe(ends), 0);
        Process = fork();
        if (Process == 0) {
            int handle = -1;
            const LockAnswer answer = TakeProcessLock(path, handle);
            static_cast<void>(!write(ends[1], &answer, sizeof answer));
            for (;;) {
                pause();
            }
        }
        close(ends[1]);
        EXPECT_EQ(read(ends[0], &Answer, sizeof Answer), static_cast<ssize_t>(sizeof Answer));
        close(ends[0]);
    }

    void Kill()
    {
        if (Process > 0) {
            kill(Process, SIGKILL);
            waitpid(Process, nullptr, 0);
        }
        Process = -1;
    }

    ~Holder()
    {
        Kill();
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
};

TEST(ProcessLock, HasOneHolder)
{
    StartCase();
    const TempFolder folder;
    int handle = 5;
    {
        Holder other(folder.Path + "/one");
        EXPECT_EQ(other.Answer, LockAnswer::Taken);
        EXPECT_EQ(TakeProcessLock(folder.Path + "/one", handle), LockAnswer::HeldByOther);
        EXPECT_EQ(handle, -1);
        other.Kill();
        EXPECT_EQ(TakeProcessLock(folder.Path + "/one", handle), LockAnswer::Taken)
            << "a killed process holds nothing, whatever file it left";
    }
    { // gone before the release: a copy of this process shares its lock
        const Holder later(folder.Path + "/one");
        EXPECT_EQ(later.Answer, LockAnswer::HeldByOther);
        const Holder elsewhere(folder.Path + "/two");
        EXPECT_EQ(elsewhere.Answer, LockAnswer::Taken) << "another name is another lock";
    }
    ReleaseProcessLock(handle);
    const Holder last(folder.Path + "/one");
    EXPECT_EQ(last.Answer, LockAnswer::Taken);
    ReleaseProcessLock(-1);
}

TEST(ProcessLock, IsNotInheritedByPrograms)
{
    StartCase();
    const TempFolder folder;
    int handle = -1;
    ASSERT_EQ(TakeProcessLock(folder.Path + "/one", handle), LockAnswer::Taken);
    const pid_t child = fork();
    if (child == 0) {
        execlp("sleep", "sleep", "60", nullptr);
        _exit(1);
    }
    for (int tries = 0; tries < 500; ++tries) { // until the program has replaced the copy of this process
        char name[64] = {};
        const ssize_t length =
            readlink(("/proc/" + std::to_string(child) + "/exe").c_str(), name, sizeof name - 1);
        if (length > 0 && std::string(name).find("test_platform") == std::string::npos) {
            break;
        }
        usleep(10000);
    }
    ReleaseProcessLock(handle);
    EXPECT_EQ(TakeProcessLock(folder.Path + "/one", handle), LockAnswer::Taken);
    ReleaseProcessLock(handle);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

TEST(ProcessLock, WantsAPlainFileOfTheUser)
{
    StartCase();
    const TempFolder folder;
    int handle = 5;
    EXPECT_EQ(TakeProcessLock(folder.Path + "/none/one", handle), LockAnswer::Unavailable);
    EXPECT_EQ(handle, -1);
    EXPECT_EQ(TakeProcessLock(folder.Path, handle), LockAnswer::Unavailable) << "a folder";
    EXPECT_EQ(TakeProcessLock("", handle), LockAnswer::Unavailable);
    static_cast<void>(folder.Write("target", ""));
    ASSERT_EQ(symlink((folder.Path + "/target").c_str(), (folder.Path + "/link").c_str()), 0);
    EXPECT_EQ(TakeProcessLock(folder.Path + "/link", handle), LockAnswer::Unavailable);
    ASSERT_EQ(mkfifo((folder.Path + "/pipe").c_str(), 0600), 0);
    EXPECT_EQ(TakeProcessLock(folder.Path + "/pipe", handle), LockAnswer::Unavailable) << "and no waiting";
    if (geteuid() == 0) {
        const std::string foreign = folder.Write("foreign", "");
        constexpr uid_t Nobody = 65534;
        ASSERT_EQ(chown(foreign.c_str(), Nobody, Nobody), 0);
        EXPECT_EQ(TakeProcessLock(foreign, handle), LockAnswer::Unavailable);
    }
    EXPECT_EQ(UserNumber(), geteuid());
}
} // namespace
