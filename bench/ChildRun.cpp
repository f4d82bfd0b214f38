#include "ChildRun.h"

#include "FirstPaintReporter.h"

#include <cstring>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace {

using Clock = std::chrono::steady_clock;

// The caller's environment with HOME replaced.
std::vector<std::string> environmentWithHome(const QString& home)
{
    std::vector<std::string> result;
    for (char** entry = environ; *entry; ++entry) {
        if (std::strncmp(*entry, "HOME=", 5) != 0)
            result.emplace_back(*entry);
    }
    result.push_back("HOME=" + home.toStdString());
    return result;
}

std::vector<char*> pointers(std::vector<std::string>& texts)
{
    std::vector<char*> result;
    for (std::string& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

// Reads until the marker arrives; false on end of output or when time runs out.
bool awaitMarker(int fd, Clock::time_point deadline)
{
    std::string received;
    char buffer[256];
    while (received.find(FirstPaintReporter::kMarker) == std::string::npos) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0)
            return false;
        pollfd readable{fd, POLLIN, 0};
        if (::poll(&readable, 1, int(left.count())) <= 0)
            continue;
        const ssize_t count = ::read(fd, buffer, sizeof buffer);
        if (count <= 0)
            return false;
        received.append(buffer, size_t(count));
    }
    return true;
}

} // namespace

ChildRun::Result ChildRun::run(const QString& program, const QStringList& arguments,
                               const QString& home, std::chrono::milliseconds limit)
{
    std::vector<std::string> argumentTexts{program.toStdString()};
    for (const QString& argument : arguments)
        argumentTexts.push_back(argument.toStdString());
    std::vector<std::string> environmentTexts = environmentWithHome(home);
    std::vector<char*> argv = pointers(argumentTexts);
    std::vector<char*> envp = pointers(environmentTexts);

    int output[2];
    if (::pipe(output) != 0)
        throw std::runtime_error("no pipe for the child's output");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, output[0]);
    posix_spawn_file_actions_addclose(&actions, output[1]);

    const auto start = Clock::now();
    pid_t pid = 0;
    const int spawned = ::posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    ::close(output[1]);
    if (spawned != 0) {
        ::close(output[0]);
        throw std::runtime_error("the program could not be started: " + argumentTexts.front());
    }

    Result result;
    const bool shown = awaitMarker(output[0], start + limit);
    result.untilShown = Clock::now() - start;
    if (!shown)
        ::kill(pid, SIGKILL);
    ::close(output[0]);

    int status = 0;
    rusage usage{};
    ::wait4(pid, &status, 0, &usage);
    result.peakResidentKiB = usage.ru_maxrss;
    if (!shown || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error("the program did not show its window: " + argumentTexts.front());
    return result;
}
