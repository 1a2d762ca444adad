// SPDX-License-Identifier: MIT
#include "cli/MapFiles.h"

#include "cli/Aside.h"
#include "cli/CancelSignals.h"
#include "tools/maps/MapText.h"
#include "tools/runs/Chosen.h"
#include "tools/runs/RunLine.h"
#include "tools/text/UsageError.h"
#include "tools/text/Words.h"

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

Report::MapCaption CaptionOf(const GenerateOptions& options, const GenReport& report) {
    return {options.seed.value_or(0),
            Report::LevelWords(options),
            options.config,
            {},
            Report::ChosenNames(report, options)};
}

void PrintMaps(Report::MapLevels& levels, const Console& console) {
    for (std::size_t i = 0; i < levels.Count(); ++i) {
        Report::PrintMap(levels.Level(i), console.page, console.out);
        console.out << '\n';
    }
    Report::PrintMapLegend(console.out);
}

void SayWritten(const std::vector<WrittenFile>& files, const Console& console) {
    for (const WrittenFile& file : files) {
        console.Say("drew \"" + file.path + "\": " + Report::Counted(file.bytes, "byte"));
    }
}

MapFiles::MapFiles(const MapFileOptions& options) {
    drawing->settings = {options.look, options.scale};
    if (options.map) {
        files.emplace_back(*options.map,
                           Report::PictureFormatOf(*options.map).value_or(Report::MapFormat::Svg));
    }
    if (options.html) {
        files.emplace_back(*options.html, Report::MapFormat::Html);
    }
}

void MapFiles::Drawing::Write(Report::MapFormat format, std::ostream& out) {
    if (!survey) {
        survey = Report::SurveyOf(*levels);
    }
    Report::WriteMaps(*levels, *survey, caption, format, settings, out);
}

void MapFiles::Write(const std::shared_ptr<Report::MapLevels>& levels,
                     const Report::MapCaption& caption) {
    drawing->levels = levels;
    drawing->caption = caption;
    for (File& file : files) {
        const auto draw = [shared = drawing, format = file.format](std::ostream& out) {
            shared->Write(format, out);
        };
        WriteAside(draw, file.output.Open(&CancelSignals::Status()));
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
