#include "Process.h"

#include "support/TempFolder.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace
{
constexpr auto PollTime = std::chrono::milliseconds(10);
constexpr int CannotStart = 127;

std::vector<char*> Pointers(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// This process's variables with those of `own` in place of their namesakes.
std::vector<std::string> WholeEnvironment(const std::vector<std::string>& own)
{
    std::vector<std::string> all = own;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        const std::string name = text.substr(0, text.find('=') + 1);
        bool replaced = false;
        for (const std::string& other : own) {
            replaced = replaced || other.starts_with(name);
        }
        if (!replaced) {
            all.push_back(text);
        }
    }
    return all;
}

int OpenLog(const std::string& log)
{
    return open(log.empty() ? "/dev/null" : log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
}

void SendOutputTo(const std::string& log, const std::string& errorLog)
{
    const int file = OpenLog(log);
    const int errors = errorLog.empty() ? file : OpenLog(errorLog);
    const int nothing = open("/dev/null", O_RDONLY);
    if (file < 0 || errors < 0 || nothing < 0) {
        _exit(CannotStart);
    }
    dup2(nothing, STDIN_FILENO);
    dup2(file, STDOUT_FILENO);
    dup2(errors, STDERR_FILENO);
}

void CloseAllBut(int kept)
{
    constexpr int LastFile = 255;
    for (int file = STDERR_FILENO + 1; file <= LastFile; ++file) {
        if (file != kept) {
            close(file);
        }
    }
}
} // namespace

bool WaitFor(double seconds, const std::function<bool()>& holds)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(PollTime);
    }
    return true;
}

Process::~Process()
{
    Stop();
}

void Process::Start(const ProcessStart& start)
{
    std::vector<std::string> words = start.Words;
    std::vector<std::string> environment = WholeEnvironment(start.Environment);
    const std::vector<char*> wordPointers = Pointers(words);
    const std::vector<char*> environmentPointers = Pointers(environment);
    const pid_t parent = getpid();
    Status.reset();
    Id = fork();
    if (Id < 0) {
        Id = 0;
        throw std::runtime_error("can't start " + words[0]);
    }
    if (Id == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL); // nothing outlives a case that is killed
        if (getppid() != parent) {
            _exit(CannotStart);
        }
        SendOutputTo(start.Log, start.ErrorLog);
        CloseAllBut(start.KeptFile);
        execvpe(wordPointers[0], wordPointers.data(), environmentPointers.data());
        _exit(CannotStart);
    }
}

bool Process::Runs()
{
    if (Id == 0) {
        return false;
    }
    int status = 0;
    if (waitpid(Id, &status, WNOHANG) == 0) {
        return true;
    }
    Status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    Id = 0;
    return false;
}

std::optional<int> Process::WaitForEnd(double seconds)
{
    WaitFor(seconds, [this] { return !Runs(); });
    return Id == 0 ? Status : std::nullopt;
}

void Process::Stop()
{
    if (Id > 0) {
        kill(Id, SIGKILL);
        int status = 0;
        while (waitpid(Id, &status, 0) < 0 && errno == EINTR) {
        }
        Id = 0;
        Status = -SIGKILL;
    }
}

Finished RunToEnd(const std::vector<std::string>& words, const std::vector<std::string>& environment,
                  double seconds)
{
    const TempFolder scratch;
    Process process;
    process.Start({words, environment, scratch.Path + "/output.txt", -1, scratch.Path + "/errors.txt"});
    Finished finished;
    const std::optional<int> status = process.WaitForEnd(seconds);
    finished.Status = status.value_or(-1);
    finished.Output = scratch.Read("output.txt");
    finished.Errors = scratch.Read("errors.txt");
    if (!status.has_value()) {
        ADD_FAILURE() << words[0] << " doesn't end";
    }
    return finished;
}
