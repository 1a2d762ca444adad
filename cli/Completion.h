// SPDX-License-Identifier: MIT
// What may stand for a word of the command line that is being typed.
#pragma once

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// The answer to a shell.
struct Completion {
    /// What the shell is to offer besides, from the disk.
    enum class Paths { None, Files, Folders };

    struct Word {
        std::string text; ///< UTF-8, without anything that a terminal could be driven by
        std::string help; ///< a few words; may be empty
    };

    Paths paths = Paths::None;
    std::vector<Word> words;
};

/// Completes `typed`, of which the case does not matter, behind the arguments `before`. Names come
/// from the configuration or preset that stands among these, or else from the built-in one.
/// Mistakes in the arguments leave less to be offered.
Completion Complete(const std::vector<std::string>& before, const std::string& typed);

} // namespace Tarnex::Cli
