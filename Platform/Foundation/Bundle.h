// A bundle: a folder with an Info.plist that says what the folder holds, and perhaps a program or
// plug-in; and the main bundle, the identity of the running program.
//
// Paths are bytes, mostly UTF-8; keys and identifiers are UTF-8. Nothing of a bundle is loaded or
// run here. Immutable and shared; any thread at once.

#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Value.h"

namespace platform {

/// A folder and its information, read once.
class Bundle final {
    struct PassKey {
        explicit PassKey() = default;
    };

public:
    Bundle(PassKey, std::string path, Dictionary information);

    /// Returns the bundle in the folder at `path`, null when there is no folder.
    ///
    /// Its information is Contents/Info.plist or, where there is none, Info.plist. A bundle whose
    /// information is missing or cannot be read has an empty one; the cause is the thread's last
    /// failure.
    ///
    /// Selector: bundleWithPath:
    [[nodiscard]] static std::shared_ptr<const Bundle> bundleWithPath(std::string_view path);

    /// Returns the bundle of the running program; one without path and information until the
    /// program has named it.
    ///
    /// Selector: mainBundle
    [[nodiscard]] static std::shared_ptr<const Bundle> mainBundle();

    /// Names the running program. A program that has a name calls this once, when it starts.
    ///
    /// A second call breaks a precondition and changes nothing.
    static void setMainBundle(std::string_view identifier, std::string_view shortVersionString);

    /// Makes `bundle` that of the running program, under the same rules.
    ///
    /// Requires: a bundle.
    static void setMainBundle(std::shared_ptr<const Bundle> bundle);

    /// The path given, without slashes at its end; empty for the main bundle.
    ///
    /// Selector: bundlePath
    [[nodiscard]] const std::string& bundlePath() const { return path_; }

    /// Selector: infoDictionary
    [[nodiscard]] const Dictionary& infoDictionary() const { return information_; }

    /// Returns the value under `key`, the null value when there is none.
    ///
    /// Selector: objectForInfoDictionaryKey:
    [[nodiscard]] Value objectForInfoDictionaryKey(std::string_view key) const;

    /// Returns the identifier, nothing when the information has none or it is no string.
    ///
    /// Selector: bundleIdentifier
    [[nodiscard]] std::optional<std::string> bundleIdentifier() const;

    /// Returns what the string table has under `key` in the language of the user: a file of
    /// strings, Contents/Resources/LANGUAGE.lproj/TABLE.strings or
    /// Contents/Resources/TABLE.strings. An empty table name stands for "Localizable". Where there
    /// is none, `value` or, when that is empty, the key.
    ///
    /// The language is that of the environment, as far as there is a table for it; else English.
    ///
    /// Selector: localizedStringForKey:value:table:
    [[nodiscard]] std::string localizedStringForKey(std::string_view key, std::string_view value,
                                                    std::string_view table) const;

    /// Returns the path of the file that holds the bundle's code, nothing when there is none.
    ///
    /// It is called NAME or libNAME.so, where NAME is CFBundleExecutable or else the folder's name
    /// less its extension. It lies in Contents/Linux, Contents or the folder itself; in a bundle
    /// without Contents, in Linux or the folder itself. A NAME with a slash could lead out of the
    /// bundle and finds nothing.
    ///
    /// Selector: executablePath
    [[nodiscard]] std::optional<std::string> executablePath() const;

private:
    friend class MainBundleTestPeer;
    using MainBundle = std::shared_ptr<const Bundle>;

    [[nodiscard]] std::string executableName() const;

    // Never freed: the program may ask for its name until its very end.
    static std::atomic<const MainBundle*> namedMainBundle_;

    const std::string path_;
    const Dictionary information_;
};

}  // namespace platform
