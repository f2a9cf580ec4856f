#include "json_notes.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "iso_time.h"
#include "util/unicode.h"
#include "words.h"

namespace quillo::qln {
namespace {

// Members in the order in which they are added.
using Json = nlohmann::ordered_json;

constexpr const char* kFormat = "quillo-notes";
constexpr int kVersion = 1;
constexpr std::size_t kWordsShown = 40;

std::string StateOf(const StoredNote& note) {
    if (note.entry.closed) return "closed";
    return std::string(StateName(note.file.appearance ? note.file.appearance->state : std::nullopt));
}

std::string Write(const Json& json) {
    constexpr int kIndent = 2;
    // Every text has been made well-formed; names of files may not be.
    return json.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

// One member for each field that the file has; absent fields have none.

template <typename T>
void Put(Json& json, const char* name, const std::optional<T>& value) {
    if (value) json[name] = *value;
}

void PutColor(Json& json, const char* name, const std::optional<ColorWord>& color) {
    if (color) json[name] = ColorText(*color);
}

Json PositionJson(const NotePosition& position) {
    Json json = Json::object();
    Put(json, "left", position.left);
    Put(json, "top", position.top);
    Put(json, "width", position.width);
    Put(json, "height", position.height);
    return json;
}

Json AppearanceJson(const NoteAppearance& appearance) {
    Json json = Json::object();
    if (appearance.state) json["state"] = StateName(appearance.state);
    Put(json, "largeText", appearance.largeText);
    Put(json, "ownColors", appearance.ownColors);
    PutColor(json, "noteColor", appearance.noteColor);
    PutColor(json, "borderColor", appearance.borderColor);
    PutColor(json, "textColor", appearance.textColor);
    return json;
}

Json NoteJson(const StoredNote& note) {
    Json json;
    json["id"] = note.entry.id;
    json["file"] = note.entry.name;
    json["state"] = StateOf(note);
    json["color"] = ColorName(note.file.appearance);
    json["text"] = ToUtf8(note.file.text);
    if (note.file.reminder && note.file.reminder->when) {
        const DaySerial when = *note.file.reminder->when;
        json["reminder"] = {{"at", FormatIsoTime(when, 'T')}, {"serial", when.days}};
    } else {
        json["reminder"] = nullptr;
    }
    if (note.file.position) json["position"] = PositionJson(*note.file.position);
    if (note.file.appearance) json["appearance"] = AppearanceJson(*note.file.appearance);
    return json;
}

// Reading. Input in another form throws, and the one caller reports it.

std::u16string TextOf(const Json& json) {
    return DecodeUtf8(json.get<std::string>(), LoneSurrogates::Refuse).value();
}

template <typename T>
std::optional<T> Get(const Json& json, const char* name) {
    const auto member = json.find(name);
    return member == json.end() ? std::nullopt : std::optional(member->get<T>());
}

std::optional<float> GetLength(const Json& json, const char* name) {
    const auto length = Get<double>(json, name);
    if (length && !(std::fabs(*length) < 1e9)) throw std::invalid_argument(std::string(name) + " is out of range");
    return length ? std::optional(static_cast<float>(*length)) : std::nullopt;
}

std::optional<ColorWord> GetColor(const Json& json, const char* name) {
    const auto text = Get<std::string>(json, name);
    if (!text) return std::nullopt;
    const auto color = ReadColorText(*text);
    if (!color) throw std::invalid_argument(std::string(name) + " is no color");
    return color;
}

NoteAppearance AppearanceFrom(const Json& json) {
    NoteAppearance appearance;
    if (const auto state = Get<std::string>(json, "state")) {
        appearance.state = StateNamed(*state);
        if (!appearance.state) throw std::invalid_argument("state is none of shown, hidden, minimized");
    }
    appearance.largeText = Get<bool>(json, "largeText");
    appearance.ownColors = Get<bool>(json, "ownColors");
    appearance.noteColor = GetColor(json, "noteColor");
    appearance.borderColor = GetColor(json, "borderColor");
    appearance.textColor = GetColor(json, "textColor");
    return appearance;
}

NoteReminder ReminderFrom(const Json& json) {
    const std::u16string at = TextOf(json.at("at"));
    const auto when = ParseIsoTime(at);
    if (!when) throw std::invalid_argument("the reminder is no time");
    // The serial has fractions of a second; a user who has edited the time means the time.
    const auto serial = Get<double>(json, "serial");
    if (serial && FormatIsoTime(DaySerial{*serial}, 'T') == FormatIsoTime(*when, 'T')) {
        return NoteReminder{DaySerial{*serial}};
    }
    return NoteReminder{when};
}

NoteFile NoteFrom(const Json& json) {
    NoteFile file;
    file.text = TextOf(json.at("text"));
    if (file.text.find(u'\0') != std::u16string::npos) throw std::invalid_argument("a text has a null character");
    const auto reminder = json.find("reminder");
    if (reminder != json.end() && !reminder->is_null()) file.reminder = ReminderFrom(*reminder);
    const auto position = json.find("position");
    if (position != json.end()) {
        file.position = NotePosition{GetLength(*position, "left"), GetLength(*position, "top"),
                                     GetLength(*position, "width"), GetLength(*position, "height")};
    }
    const auto appearance = json.find("appearance");
    if (appearance != json.end()) file.appearance = AppearanceFrom(*appearance);
    return file;
}

}  // namespace

std::string ListAsJson(const std::vector<StoredNote>& notes) {
    Json list = Json::array();
    for (const StoredNote& note : notes) {
        Json json;
        json["number"] = note.entry.number;
        json["id"] = note.entry.id;
        json["words"] = ToUtf8(FirstWords(note.file.text, kWordsShown));
        json["state"] = StateOf(note);
        const bool reminds = note.file.reminder && note.file.reminder->when;
        json["reminder"] = reminds ? Json(FormatIsoTime(*note.file.reminder->when, 'T')) : Json(nullptr);
        json["color"] = ColorName(note.file.appearance);
        json["file"] = note.entry.name;
        list.push_back(std::move(json));
    }
    return Write(list);
}

std::string NotesAsJson(const std::vector<StoredNote>& notes) {
    Json json;
    json["format"] = kFormat;
    json["version"] = kVersion;
    json["notes"] = Json::array();
    for (const StoredNote& note : notes) json["notes"].push_back(NoteJson(note));
    return Write(json);
}

std::optional<std::vector<NoteFile>> NotesFromJson(std::string_view json, std::string& error) {
    try {
        const Json read = Json::parse(json);
        if (read.at("format") != kFormat || read.at("version") != kVersion) {
            error = "it is no export of notes that this version reads";
            return std::nullopt;
        }
        std::vector<NoteFile> notes;
        for (const Json& note : read.at("notes")) notes.push_back(NoteFrom(note));
        return notes;
    } catch (const std::exception& problem) {
        error = problem.what();
        return std::nullopt;
    }
}

}  // namespace quillo::qln
