// The cold path as the platform meets it: a fresh process loads the library (dlopen), makes
// the object and asks for its first picture, the demo EAN-13 with the built-in font; then five
// more pictures. Runs itself 20 times as a child process and prints the median CPU time of each
// step over the children (process CPU time, so that any thread of the library counts).

#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "tools/host/extension_library.h"
#include "tools/host/extension_session.h"

extern char** environ;

namespace {

constexpr int kProcesses = 20;
constexpr int kLaterCalls = 5;
// Load, object, first picture, then the later calls.
constexpr int kSteps = 3 + kLaterCalls;
const char* const kStepNames[3] = {"load (dlopen)", "object", "first picture"};

double cpuMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

// The child: one line of kSteps microsecond figures.
int child() {
    std::array<double, kSteps> steps{};
    double mark = cpuMicroseconds();
    auto lap = [&mark](double& step) {
        const double now = cpuMicroseconds();
        step = now - mark;
        mark = now;
    };
    const VelkoHost::ExtensionLibrary library(VelkoHost::ExtensionLibrary::defaultPath());
    lap(steps[0]);
    if (!library.loaded()) {
        std::fprintf(stderr, "velko-bench-cold: %s\n", library.error().c_str());
        return 2;
    }
    VelkoHost::ExtensionSession session(library);
    lap(steps[1]);
    for (int call = 0; call <= kLaterCalls; ++call) {
        if (session.getBarcode().empty()) {
            return 1;
        }
        lap(steps[static_cast<size_t>(2 + call)]);
    }
    for (double step : steps) {
        std::printf("%.1f ", step);
    }
    std::printf("\n");
    return 0;
}

// Runs this program as a child and reads its line; false when it failed.
bool runChild(const char* self, std::array<double, kSteps>& steps) {
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0) {
        return false;
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipeEnds[0]);
    char childFlag[] = "--child";
    char* argv[] = {const_cast<char*>(self), childFlag, nullptr};
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, self, &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(pipeEnds[1]);
    std::string line;
    char buffer[256];
    ssize_t got = 0;
    while ((got = read(pipeEnds[0], buffer, sizeof buffer)) > 0) {
        line.append(buffer, static_cast<size_t>(got));
    }
    close(pipeEnds[0]);
    int status = 0;
    if (spawned != 0 || waitpid(pid, &status, 0) != pid || !WIFEXITED(status) ||
        WEXITSTATUS(status) != 0) {
        return false;
    }
    const char* at = line.c_str();
    for (double& step : steps) {
        char* end = nullptr;
        step = std::strtod(at, &end);
        if (end == at) {
            return false;
        }
        at = end;
    }
    return true;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const size_t half = values.size() / 2;
    return values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "--child") == 0) {
        return child();
    }
    std::array<std::vector<double>, kSteps> samples;
    std::vector<double> coldTotals;
    for (int i = 0; i < kProcesses; ++i) {
        std::array<double, kSteps> steps{};
        if (!runChild("/proc/self/exe", steps)) {
            std::fprintf(stderr, "velko-bench-cold: a child process failed\n");
            return 1;
        }
        for (int s = 0; s < kSteps; ++s) {
            samples[static_cast<size_t>(s)].push_back(steps[static_cast<size_t>(s)]);
        }
        coldTotals.push_back(steps[0] + steps[1] + steps[2]);
    }
    std::printf("median CPU time of %d fresh processes, microseconds\n", kProcesses);
    for (int s = 0; s < kSteps; ++s) {
        std::string name = s < 3 ? kStepNames[s] : "call " + std::to_string(s - 1);
        std::printf("%-24s %10.1f\n", name.c_str(), median(samples[static_cast<size_t>(s)]));
    }
    std::printf("%-24s %10.1f\n", "load + object + first", median(coldTotals));
    return 0;
}
