#pragma once

#include <string>

namespace quillo::e2e {

/// How many items are in the user's Recycle Bin.
[[nodiscard]] long long RecycledItems();

/// Whether the Recycle Bin has exactly one item that was deleted from that full path.
[[nodiscard]] bool IsInRecycleBin(const std::wstring& path);

/// Chooses "Restore" for the item that was deleted from that full path, and waits until it is back. False if there is
/// none or it does not come back.
[[nodiscard]] bool RestoreFromRecycleBin(const std::wstring& path);

}  // namespace quillo::e2e
