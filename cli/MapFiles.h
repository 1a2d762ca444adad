// SPDX-License-Identifier: MIT
// Where maps go: into files, or onto the terminal.
#pragma once

#include "cli/Console.h"
#include "cli/Options.h"
#include "tools/maps/LevelMap.h"
#include "tools/maps/MapFile.h"

#include <vaultry/run/SafeFile.h>

#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Tarnex::Cli {

/// Throws UsageError when a map is asked for in a format that is not there, or when one file would
/// destroy another: no two of `files` may be the same.
void CheckMapOptions(const MapFileOptions& options);
void RequireDistinctFiles(const std::vector<std::optional<std::string>>& files);

/// What the margin of a map says about a run.
Report::MapCaption CaptionOf(const GenerateOptions& options, const GenReport& report);

/// Prints every level, and what the characters mean.
void PrintMaps(Report::MapLevels& levels, const Console& console);

/// Says which maps were written.
void SayWritten(const std::vector<WrittenFile>& files, const Console& console);

/// The maps that were asked for, each replaced whole or not at all.
class MapFiles {
public:
    /// Nothing is created yet. Throws FilePlaceError when a file cannot be written to.
    explicit MapFiles(const MapFileOptions& options);

    /// Draws into the temporary files, see WriteAside. Throws Report::MapError, and FileError when
    /// a file could not be written whole or a signal asked to stop.
    void Write(const std::shared_ptr<Report::MapLevels>& levels, const Report::MapCaption& caption);

    /// What is known of the levels that were written.
    const Report::MapSurvey& Survey() const { return drawing->survey.value(); }

    /// Gives the files their names and returns what was written. Throws FileError.
    std::vector<WrittenFile> Commit();

private:
    struct File {
        File(const std::string& filePath, Report::MapFormat fileFormat)
            : path(filePath), format(fileFormat), output(filePath) {}

        std::string path;
        Report::MapFormat format;
        SafeFile output;
    };

    // What the thread that draws uses.
    struct Drawing {
        std::shared_ptr<Report::MapLevels> levels;
        Report::MapCaption caption;
        Report::MapSettings settings;
        std::optional<Report::MapSurvey> survey;

        void Write(Report::MapFormat format, std::ostream& out);
    };

    std::shared_ptr<Drawing> drawing = std::make_shared<Drawing>();
    std::list<File> files; // an output stays where it was made
};

} // namespace Tarnex::Cli
