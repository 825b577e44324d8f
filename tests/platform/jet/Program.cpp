#include "tests/platform/jet/Program.h"

#include <array>
#include <csignal>
#include <exception>
#include <iostream>
#include <system_error>

#include <sys/wait.h>
#include <unistd.h>

namespace {

std::array<int, 2> makePipe()
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) throw std::system_error(errno, std::generic_category(), "pipe");
    return ends;
}

char doStep(const std::function<void(int)>& work, int step)
{
    try {
        work(step);
        return 'y';
    } catch (const std::exception& error) {
        std::cerr << "other program, step " << step << ": " << error.what() << '\n';
        return 'n';
    }
}

[[noreturn]] void serve(const std::function<void(int)>& work, int orders, int answers)
{
    char order = 0;
    for (int step = 1; read(orders, &order, 1) == 1; ++step) {
        const char answer = doStep(work, step);
        if (write(answers, &answer, 1) != 1) break;
    }
    _exit(0);
}

} // namespace

Program::Program(const std::function<void(int step)>& work)
{
    const auto orders = makePipe();
    const auto answers = makePipe();
    m_process = fork();
    if (m_process < 0) throw std::system_error(errno, std::generic_category(), "fork");
    if (m_process == 0) {
        close(orders[1]);
        close(answers[0]);
        serve(work, orders[0], answers[1]);
    }
    close(orders[0]);
    close(answers[1]);
    m_orders = orders[1];
    m_answers = answers[0];
}

Program::~Program()
{
    kill();
    close(m_orders);
    close(m_answers);
}

bool Program::next()
{
    const char order = 'n';
    char answer = 0;
    return write(m_orders, &order, 1) == 1 && read(m_answers, &answer, 1) == 1 && answer == 'y';
}

void Program::kill()
{
    if (m_process == 0) return;
    ::kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
    m_process = 0;
}
