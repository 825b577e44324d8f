#pragma once

#include <functional>

/// Another program on the same files: a process of its own, which does its work step by step when it is told.
///
/// Create it before the test opens a database: the process begins with what the test had open.
class Program {
public:
    /// What the other program does: `step` is called with 1, 2, ... and lets errors fly.
    explicit Program(const std::function<void(int step)>& work);
    ~Program(); ///< Ends it, in the middle of its work if it has not finished.
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Has it do the next step. \returns whether that went through without an error.
    bool next();
    /// Kills it, as a power failure would.
    void kill();

private:
    int m_process = 0;
    int m_orders = -1;
    int m_answers = -1;
};
