#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillo::qln {

/// A Wine prefix, seen from outside: its drives are links in the folder "dosdevices".
class WinePrefix {
  public:
    explicit WinePrefix(std::string folder) : folder_(std::move(folder)) {}

    /// Whether the folder is a prefix.
    [[nodiscard]] static bool IsPrefix(const std::string& folder);
    /// The prefix that contains a folder; "" if there is none.
    [[nodiscard]] static std::string Above(const std::string& folder);

    [[nodiscard]] const std::string& Folder() const { return folder_; }
    /// The path of a Windows path such as "C:\users\me", its parts found in any letter case; "" without such a drive.
    [[nodiscard]] std::string ToHost(std::u16string_view windowsPath) const;
    /// The Windows path of a path, on the drive that is nearest to it; nothing if no drive contains it.
    [[nodiscard]] std::optional<std::string> ToWindows(const std::string& path) const;

  private:
    std::string folder_;
};

}  // namespace quillo::qln
