// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The files, the image paths and the debug log of the shared services.
#include <fmt/format.h>

#include <exception>
#include <utility>

#include "common/GlobalFuncs.h"
#include "common/numbers.h"

namespace quode {
namespace {

constexpr std::string_view logFileName = "QuodeLog.txt";

// From this version on, images of double resolution are used.
constexpr int firstVersionWithDoubleImages = 4;

}  // namespace

bool GlobalFuncs::fileExists(const std::string& path) noexcept {
    try {
        return platform_.files->exists(path);
    } catch (const std::exception& error) {
        NSLogToFile(error.what());
        return false;
    }
}

void GlobalFuncs::deleteFileOnMobilePath(const std::string& fileName) noexcept {
    try {
        const std::string path = dataFolder() + "/" + fileName;
        if (platform_.files->deletable(path)) platform_.files->remove(path);
    } catch (const std::exception& error) {
        NSLogToFile(std::string("Error removing file at path: ") + error.what());
    }
}

bool GlobalFuncs::hasDoubleImages() const {
    return leadingNumber<int>(platform_.device->systemVersion()) >= firstVersionWithDoubleImages &&
           platform_.device->screenScale() > 1.0;
}

std::string GlobalFuncs::getImagePathOnRoot(std::string_view name) const {
    return fmt::format("{}/{}{}", appBundlePath_, name, hasDoubleImages() ? "@2x.png" : ".png");
}

std::string GlobalFuncs::getImagePathOnImages(std::string_view name) {
    const std::string path = fmt::format("{}/images/{}", appBundlePath_, name);
    if (deviceType_ == 1) {
        std::string tabletPath = path + (hasDoubleImages() ? "iPad@2x.png" : "iPad.png");
        if (fileExists(tabletPath)) return tabletPath;
    }
    return path + (hasDoubleImages() ? "@2x.png" : ".png");
}

std::string GlobalFuncs::getImagePathWithout2X(std::string_view name) const {
    return fmt::format("{}/images/{}.png", appBundlePath_, name);
}

void GlobalFuncs::addComboItem(std::vector<UIComboboxItem>& items, std::string displayText, std::string originalText,
                               std::int32_t id) const {
    items.push_back({id, std::move(displayText), std::move(originalText)});
}

void GlobalFuncs::NSLogToFile(std::string_view message) noexcept {
    try {
        const VAKDate now = GetCurrentDateTime();
        const std::string line =
            fmt::format("[{:02d}:{:02d}:{:02d}] {}\n", now.Hours, now.Minutes, now.Seconds, message);
        platform_.files->append(fmt::format("{}/{}", dataFolder(), logFileName), line);
    } catch (const std::exception&) {
        // Lost: there is no other place to report it, and dataFolderProblem reports the missing folder.
    }
}

void GlobalFuncs::NSLogToFileStrInt(std::string_view text, std::int32_t value) {
    NSLogToFile(fmt::format("{} {}", text, value));
}

void GlobalFuncs::NSLogToFileStrIntInt(std::string_view text, std::int32_t first, std::int32_t second) {
    NSLogToFile(fmt::format("{} {}, {}", text, first, second));
}

void GlobalFuncs::NSLogToFileStrFloat(std::string_view text, double value) {
    NSLogToFile(fmt::format("{} {:f}", text, value));
}

void GlobalFuncs::NSLogToFileStrFloatFloat(std::string_view text, double first, double second) {
    NSLogToFile(fmt::format("{} {:f}, {:f}", text, first, second));
}

}  // namespace quode
