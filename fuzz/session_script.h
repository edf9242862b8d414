#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

/// Scripts of user actions as fuzz input. They are changed line by line, so that most of what
/// comes out can be carried out, and a fault is a script that a person can read and run.
namespace kvrnstep::fuzz {

using Lines = std::vector<std::string>;
using Random = std::minstd_rand;

Lines linesOf(std::string_view script);
std::string scriptOf(const Lines& lines, std::size_t mostBytes);

/// The script with one or a few lines added, removed, moved or replaced.
Lines changed(Lines script, Random& random);
/// Some lines of each.
Lines crossed(const Lines& one, const Lines& other, Random& random);

}  // namespace kvrnstep::fuzz
