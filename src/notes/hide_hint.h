#pragma once

namespace quillo {

class RegistryApi;
class UserNotice;
struct OsFacts;
struct Settings;

/// Tells how a hidden note is seen again, the first time that any note is hidden, and notes down that it was told. On
/// old systems a message box does, which pumps messages.
void ShowHideHintOnce(RegistryApi& registry, const Settings& settings, const OsFacts& os, UserNotice& notice);

}  // namespace quillo
