#pragma once

#include <sys/wait.h>
#include <unistd.h>

/// Starts a copy of this process that runs `work`, which returns its exit code.
template <class Work>
pid_t startChild(const Work& work)
{
    const pid_t pid = fork();
    if (pid == 0) _exit(work());
    return pid;
}

/// The exit code of a child; -1 when it did not end by itself.
inline int exitCode(pid_t child)
{
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}
