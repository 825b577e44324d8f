#pragma once

/// Some of a command's work could not be done, and what is told already: ends the program with exit code 1.
struct Teilerfolg {};
