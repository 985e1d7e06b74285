// Runs one command without input or output and prints what it cost: milliseconds of user and system time, and the peak
// of its memory in megabytes.
//
//   quorvel_bench_cost COMMAND [ARGUMENT]...
//
// A process of its own, since the peak that the system reports of a process begins with what its starter had in use:
// started by an interpreter, no program would seem smaller than that.

#include <cstdlib>
#include <fcntl.h>
#include <iostream>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double Milliseconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) * 1e-3;
}

/// Starts the command; its process id, or -1.
pid_t Start(char** command) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = -1;
    const int failure = posix_spawnp(&process, command[0], &actions, nullptr, command, environ);
    posix_spawn_file_actions_destroy(&actions);
    return failure == 0 ? process : -1;
}

}  // namespace

int main(int argc, char** argv) {
    const pid_t process = argc > 1 ? Start(argv + 1) : -1;
    int status = 0;
    rusage usage{};
    if (process < 0 || wait4(process, &status, 0, &usage) != process) {
        std::cerr << "The command could not be started.\n";
        return EXIT_FAILURE;
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        std::cerr << "The command failed: " << argv[1] << '\n';
        return EXIT_FAILURE;
    }
    constexpr double kMegabytesPerKibibyte = 1024e-6;
    std::cout << Milliseconds(usage.ru_utime) + Milliseconds(usage.ru_stime) << ' '
              << static_cast<double>(usage.ru_maxrss) * kMegabytesPerKibibyte << '\n';
    return EXIT_SUCCESS;
}
