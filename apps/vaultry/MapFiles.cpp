// SPDX-License-Identifier: MIT
#include "apps/vaultry/MapFiles.h"

#include "apps/report/UsageError.h"
#include "apps/vaultry/CancelSignals.h"

namespace Tarnex::Cli {

void CheckMapOptions(const MapFileOptions& options) {
    if (!options.map) {
        return;
    }
    const auto format = Report::PictureFormatOf(*options.map);
    if (!format) {
        throw UsageError("--map: \"" + *options.map +
                         "\" ends neither in .svg nor in .png; pages are written with --html");
    }
    if (format == Report::MapFormat::Png) {
        Report::RequirePngModule();
    }
}

void RequireDistinctFiles(const std::vector<std::optional<std::string>>& files) {
    for (std::size_t i = 0; i < files.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (files[i] && files[j] && SameFile(*files[i], *files[j])) {
                throw UsageError("\"" + *files[i] + "\" is named for two files");
            }
        }
    }
}

MapFiles::MapFiles(const MapFileOptions& options) : settings{options.look, options.scale} {
    if (options.map) {
        files.emplace_back(*options.map,
                           Report::PictureFormatOf(*options.map).value_or(Report::MapFormat::Svg));
    }
    if (options.html) {
        files.emplace_back(*options.html, Report::MapFormat::Html);
    }
}

void MapFiles::Write(const std::vector<Report::LevelMap>& maps, const Report::MapCaption& caption) {
    for (File& file : files) {
        Report::WriteMaps(
            maps, caption, file.format, settings, file.output.Open(&CancelSignals::Status()));
        file.output.Finish();
    }
}

std::vector<WrittenFile> MapFiles::Commit() {
    std::vector<WrittenFile> written;
    for (File& file : files) {
        file.output.Commit();
        written.push_back({file.path, file.output.Size()});
    }
    return written;
}

} // namespace Tarnex::Cli
