#pragma once

#include <string>

namespace quillo::e2e {

/// How many things lie in the user's Recycle Bin.
[[nodiscard]] long long RecycledItems();

/// Whether the Recycle Bin holds exactly one thing that was thrown away from that full path.
[[nodiscard]] bool IsInRecycleBin(const std::wstring& path);

/// Chooses "Restore" for the thing that was thrown away from that full path, and waits until it is back there. False
/// when there is none or it does not come back.
[[nodiscard]] bool RestoreFromRecycleBin(const std::wstring& path);

}  // namespace quillo::e2e
