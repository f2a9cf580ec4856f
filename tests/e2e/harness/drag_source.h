#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/win32.h"

namespace quillo::e2e {

/// The data that another program drags: the bytes of each clipboard format.
using DragData = std::map<UINT, std::string>;

[[nodiscard]] UINT LinkClipboardFormat();
/// The contents of CF_UNICODETEXT, CF_TEXT and the link format, and of CF_HDROP.
[[nodiscard]] std::string WideTextBytes(const std::wstring& text);
[[nodiscard]] std::string NarrowTextBytes(const std::string& text);
[[nodiscard]] std::string FileListBytes(const std::vector<std::wstring>& paths);

/// Drags the data from a small test window and drops it at `to`, with the real mouse. True if the target accepted it as
/// a copy.
[[nodiscard]] bool DragTo(const DragData& data, POINT to);

}  // namespace quillo::e2e
