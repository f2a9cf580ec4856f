#include "app/legacy_import.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/base/registry_keys.h"
#include "app/base/settings.h"
#include "app/note_identifier.h"
#include "app/open_notes.h"
#include "ports/locale_text.h"
#include "registry/tessel_registry.h"
#include "util/content_hash.h"
#include "util/ignore.h"
#include "util/numbers.h"
#include "util/text.h"
#include "util/unicode.h"

namespace quillo {

namespace {

/// The number of notes, and the values of each, whose names end in the note's number.
constexpr std::u16string_view kText = u"Note ";
constexpr std::u16string_view kSize = u"Note size ";
constexpr std::u16string_view kReminder = u"Note reminder ";
constexpr std::u16string_view kAppearance = u"Note appearance ";
constexpr std::u16string_view kFileName = u"Note filename ";
constexpr std::array kOfEachNote = {kText, kSize, kReminder, kAppearance, kFileName};
constexpr std::u16string_view kUnknownSize = u"0,0,2000,2000,0";
/// Up to this number, a note without any value is an empty note. Above it, only numbers with a value are notes, so that
/// a damaged count does not fill the desktop.
constexpr std::int64_t kSurelyMeant = 50;

std::u16string Numbered(std::u16string_view name, std::int64_t number) {
    return std::u16string(name) + FormatInteger(number);
}

std::vector<std::u16string_view> SplitFields(std::u16string_view text) {
    std::vector<std::u16string_view> fields;
    std::size_t comma = 0;
    while ((comma = text.find(u',')) != std::u16string_view::npos) {
        fields.push_back(text.substr(0, comma));
        text.remove_prefix(comma + 1);
    }
    fields.push_back(text);
    return fields;
}

/// Four numbers in twips. A field that is missing or not a number is absent.
NotePosition ReadRectangle(const std::vector<std::u16string_view>& fields, LocaleText& locale) {
    const auto field = [&](std::size_t i) -> std::optional<float> {
        const std::optional<double> number = i < fields.size() ? locale.ParseNumber(fields[i]) : std::nullopt;
        if (!number || std::fabs(*number) > std::numeric_limits<float>::max()) return std::nullopt;
        return static_cast<float>(*number);
    };
    return NotePosition{field(0), field(1), field(2), field(3)};
}

/// "True", or any number but 0.
bool ReadPinned(const std::vector<std::u16string_view>& fields, LocaleText& locale) {
    constexpr std::size_t kPinnedField = 4;
    if (fields.size() <= kPinnedField) return false;
    const std::u16string_view field = Trim(fields[kPinnedField]);
    return EqualsIgnoringAsciiCase(field, u"true") || locale.ParseNumber(field).value_or(0) != 0;
}

void ApplySize(OpenNote& note, std::u16string_view size, LocaleText& locale) {
    const std::vector<std::u16string_view> fields = SplitFields(size.empty() ? kUnknownSize : size);
    note.SetPosition(ReadRectangle(fields, locale));
    if (ReadPinned(fields, locale)) note.SetPinned(true);
}

/// A number as the store writes it: decimal, without leading zeros.
std::optional<std::int64_t> ReadNumber(std::u16string_view text) {
    constexpr std::size_t kMostDigits = 10;
    if (text.empty() || text.size() > kMostDigits || text.front() == u'0') return std::nullopt;
    std::int64_t number = 0;
    for (const char16_t digit : text) {
        if (digit < u'0' || digit > u'9') return std::nullopt;
        number = number * 10 + (digit - u'0');
    }
    return number;
}

std::set<std::int64_t> NumbersOf(const TextTable& values, std::int64_t count) {
    std::set<std::int64_t> numbers;
    for (std::int64_t number = 1; number <= std::min(count, kSurelyMeant); ++number) numbers.insert(number);
    for (const std::u16string_view value : values.names) {
        for (const std::u16string_view name : kOfEachNote) {
            if (!EqualsIgnoringAsciiCase(value.substr(0, name.size()), name)) continue;
            const std::optional<std::int64_t> number = ReadNumber(value.substr(name.size()));
            if (number && *number <= count) numbers.insert(*number);
        }
    }
    return numbers;
}

/// The name of the storage copy of a note of the store, in the form of an identifier. The same values yield the same
/// name, so that an import recognizes the file of one that was killed before it could clear the store.
std::u16string IdentifierOf(const TesselRegistry& store, std::int64_t number) {
    std::u16string values;
    for (const std::u16string_view name : kOfEachNote) {
        values.append(store.Value(Numbered(name, number))).append(1, u'\0');
    }
    std::u16string identifier = u"{";
    for (std::uint64_t half : {ContentHash(EncodeUtf8(values)), static_cast<std::uint64_t>(number)}) {
        for (int digit = 0; digit < 16; ++digit, half <<= 4) identifier += u"0123456789ABCDEF"[half >> 60];
    }
    for (const std::size_t dash : {9U, 14U, 19U, 24U}) identifier.insert(dash, 1, u'-');
    return identifier + u"}";
}

}  // namespace

bool LegacyNotes::Import(const NoteServices& services) {
    const TesselRegistry store(registry_, kUserKey);
    bool anyHidden = false;
    TextTable values;
    if (!store.GetAllValues(values)) return false;  // the rest of the store would be lost when it is cleared
    numbers_ = NumbersOf(values, store.ValueLong(setting::kNotes));
    for (const std::int64_t number : numbers_) {
        std::u16string path = services.saving.store.StoragePathOf(IdentifierOf(store, number));
        if (services.saving.store.Files().FileExists(path)) continue;  // opened with the other files
        const OpenNote* note = ImportNote(services, store, number, std::move(path));
        if (note == nullptr) {
            TakeBackImport();
            return false;
        }
        if (!note->IsVisible()) anyHidden = true;
    }
    imported_ = true;
    return anyHidden;
}

OpenNote* LegacyNotes::ImportNote(const NoteServices& services, const TesselRegistry& store, std::int64_t number,
                                  std::u16string storagePath) {
    OpenNote* added = notes_.Add(services, NewNoteIdentifier(notes_, random_));
    if (added == nullptr) return nullptr;
    OpenNote& note = *added;
    if (!note.SetText(store.Value(Numbered(kText, number)))) {
        note.DestroyNote();
        return nullptr;
    }
    ApplySize(note, store.Value(Numbered(kSize, number)), services.dates.locale);
    note.SetReminderString(store.Value(Numbered(kReminder, number)));
    Ignore(note.SetAppearanceString(store.Value(Numbered(kAppearance, number))),
           "a state that is not known leaves the note unseen, and that is reported");
    note.SetFileName(store.Value(Numbered(kFileName, number)));
    note.Saver().SetStoragePath(std::move(storagePath));
    note.MarkChanged();
    unsaved_[note.NoteKey()] = note.Text();
    return added;
}

void LegacyNotes::TakeBackImport() {
    // Left open, they would be saved to files while the store still has them: the next start would open each twice.
    for (const auto& [key, text] : std::exchange(unsaved_, {})) {
        if (OpenNote* note = notes_.Find(key)) note->DestroyNote();
    }
    numbers_.clear();
}

void LegacyNotes::SaveImported() {
    if (numbers_.empty()) return;
    for (const auto& [key, text] : unsaved_) {
        if (OpenNote* note = notes_.Find(key)) note->PersistNote();
    }
    ClearWhatIsSaved();
}

void LegacyNotes::ClearWhatIsSaved() {
    std::erase_if(unsaved_, [this](const auto& entry) {
        OpenNote* note = notes_.Find(entry.first);
        return note == nullptr || note->Saver().IsStored();
    });
    // Before the import the store has the only copy of its notes: a quit during start-up must not clear it.
    if (imported_ && unsaved_.empty()) Clear();
}

bool LegacyNotes::StillHolds(const OpenNote& note) const {
    const auto imported = unsaved_.find(note.NoteKey());
    return imported != unsaved_.end() && imported->second == note.Text();
}

void LegacyNotes::Clear() {
    TesselRegistry store(registry_, kUserKey);
    const std::int64_t count = store.ValueLong(setting::kNotes);
    // First: a count whose notes are partly deleted would be imported as empty notes.
    if (count != 0) store.SetValueLong(setting::kNotes, 0);
    for (const std::int64_t number : numbers_) {
        if (number > count) break;
        for (const std::u16string_view name : kOfEachNote) {
            store.DeleteValue(Numbered(name, number));
        }
    }
    store.DeleteValue(setting::kNotes);
}

}  // namespace quillo
