#pragma once

#include "SettingKey.h"

// The user defaults the project reads and writes, by name and type. Their defaults are
// registered by CTWindowController::registerDefaults().
namespace Preferences {
// Seconds a new line lasts.
inline constexpr SettingKey<double> SubtitleLength{u"SubtitleLength"};
inline constexpr SettingKey<bool> ShowTutorial{u"ShowTutorial"};
// The language of new subtitle files ("en", "de", ...).
inline constexpr SettingKey<QString> Locale{u"Locale"};
inline constexpr SettingKey<bool> AutoConvert{u"AutoConvert"};
// Extract a movie's subtitle tracks / chapter track when it opens.
inline constexpr SettingKey<bool> AutoExtract{u"AutoExtract"};
inline constexpr SettingKey<bool> AutoExtractVTT{u"AutoExtractVTT"};
// Offer to embed edited subtitles before the movie is left.
inline constexpr SettingKey<bool> AutoEmbed{u"AutoEmbed"};
// Tap2Sync: seconds played again before tapping starts, seconds a tap lands earlier than the
// key press (reaction time), and whether the line before the first tap becomes an anchor.
inline constexpr SettingKey<double> TapRewindSecs{u"TapRewindSecs"};
inline constexpr SettingKey<double> TapDelaySecs{u"TapDelaySecs"};
inline constexpr SettingKey<bool> TapFixPrev{u"TapFixPrev"};
// The Tap2Sync explanation was shown and the user asked not to see it again.
inline constexpr SettingKey<bool> ShownTap2Sync{u"ShownTap2Sync"};
// The disclaimer at the first start was shown.
inline constexpr SettingKey<bool> ShownDisclaimer{u"ShownDisclaimer"};
inline constexpr SettingKey<bool> AutoOpenSearch{u"AutoOpenSearch"};
inline constexpr SettingKey<bool> WindowsLineBreaks{u"WindowsLineBreaks"};
// Seconds between recovery copies of unsaved changes.
inline constexpr SettingKey<double> AutosaveInterval{u"AutosaveInterval"};
// Reopen the last movie and subtitle file at start.
inline constexpr SettingKey<bool> AutoLoadLast{u"AutoLoadLast"};
inline constexpr SettingKey<QString> LastVideo{u"LastVideo"};
inline constexpr SettingKey<QString> LastSubtitle{u"LastSubtitle"};
// Selecting a line does not seek to it (the Option key inverts it).
inline constexpr SettingKey<bool> SubtitleNoJump{u"SubtitleNoJump"};
inline constexpr SettingKey<bool> SearchCaseSensitive{u"searchCaseSensitive"};
// The player tried first: 2 libVLC, else libmpv.
inline constexpr SettingKey<qint64> PreferredPlayer{u"PreferredPlayer"};
// The audio track last chosen, by its index in the Audio menu.
inline constexpr SettingKey<int> AudioTrack{u"AudioTrack"};
// Export: the format (0 SubRip, 1 WebVTT) and the text encoding chosen last.
inline constexpr SettingKey<qint64> ExportType{u"ExportType"};
inline constexpr SettingKey<qint64> ExportEncoding{u"ExportEncoding"};
// The encoding subtitle files are read with (0: detect).
inline constexpr SettingKey<qint64> Encoding{u"Encoding"};
} // namespace Preferences
