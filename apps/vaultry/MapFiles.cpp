// SPDX-License-Identifier: MIT
#include "apps/vaultry/MapFiles.h"

#include "apps/report/UsageError.h"
#include "apps/vaultry/CancelableFile.h"

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

std::optional<std::string> MapFiles::Write(const std::vector<Report::LevelMap>& maps,
                                           const Report::MapCaption& caption,
                                           const CancelSignals& signals) {
    for (const File& file : files) {
        CancelableFile written(file.output.TemporaryPath(), signals);
        Report::WriteMaps(maps, caption, file.format, settings, written.Stream());
        if (!written.Close()) {
            return file.path;
        }
    }
    return std::nullopt;
}

std::vector<WrittenFile> MapFiles::Commit() {
    std::vector<WrittenFile> written;
    for (File& file : files) {
        written.push_back({file.path, file.output.Commit()});
    }
    return written;
}

} // namespace Tarnex::Cli
