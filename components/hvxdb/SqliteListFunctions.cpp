#include "components/hvxdb/SqliteListFunctions.h"

#include "components/hvxdb/HvxStatements.h"

#include <array>
#include <charconv>
#include <sqlite3.h>
#include <string>
#include <string_view>

namespace {

/// What one list has so far; SQLite keeps it, zeroed at first.
struct JoinedText
{
    sqlite3_str* text;
};

JoinedText* JoinedOf(sqlite3_context* context)
{
    return static_cast<JoinedText*>(sqlite3_aggregate_context(context, sizeof(JoinedText)));
}

/// The text to go on with; `separator` stands behind what it has. Null: no memory, which is told.
sqlite3_str* GoOn(sqlite3_context* context, char separator)
{
    JoinedText* joined = JoinedOf(context);
    if (!joined) {
        sqlite3_result_error_nomem(context);
        return nullptr;
    }
    if (!joined->text)
        joined->text = sqlite3_str_new(sqlite3_context_db_handle(context));
    else
        sqlite3_str_appendchar(joined->text, 1, separator);
    return joined->text;
}

/// Bytes of the control character that begins here, in UTF-8; 0 when there is none.
int ControlLength(const unsigned char* at, const unsigned char* end)
{
    if (*at < 0x20 || *at == 0x7f)
        return 1;
    const bool upperControl = *at == 0xc2 && end - at > 1 && at[1] >= 0x80 && at[1] < 0xa0;
    return upperControl ? 2 : 0;
}

void AppendName(sqlite3_str* text, const unsigned char* name, int size)
{
    const unsigned char* const end = name + size;
    const unsigned char* kept = name;
    for (const unsigned char* at = name; at < end; ++at) {
        const int control = ControlLength(at, end);
        if (control == 0)
            continue;
        sqlite3_str_append(text, reinterpret_cast<const char*>(kept), static_cast<int>(at - kept));
        sqlite3_str_appendchar(text, 1, ' ');
        at += control - 1;
        kept = at + 1;
    }
    sqlite3_str_append(text, reinterpret_cast<const char*>(kept), static_cast<int>(end - kept));
}

void AppendId(sqlite3_str* text, sqlite3_int64 id)
{
    std::array<char, 24> digits;
    const std::to_chars_result end = std::to_chars(digits.data(), digits.data() + digits.size(), id);
    sqlite3_str_append(text, digits.data(), static_cast<int>(end.ptr - digits.data()));
}

void AddPair(sqlite3_context* context, int, sqlite3_value** values)
{
    sqlite3_str* const text = GoOn(context, '\t');
    if (!text)
        return;
    const unsigned char* name = sqlite3_value_text(values[0]);
    if (name)
        AppendName(text, name, sqlite3_value_bytes(values[0]));
    sqlite3_str_appendchar(text, 1, '\t');
    AppendId(text, sqlite3_value_int64(values[1]));
}

void AppendField(sqlite3_str* text, sqlite3_value* value)
{
    // A number asked for as a text would be kept as one beside it.
    if (sqlite3_value_type(value) == SQLITE_INTEGER)
        AppendId(text, sqlite3_value_int64(value));
    else if (const unsigned char* field = sqlite3_value_text(value))
        sqlite3_str_append(text, reinterpret_cast<const char*>(field), sqlite3_value_bytes(value));
}

void AddRow(sqlite3_context* context, int count, sqlite3_value** values)
{
    constexpr auto separator = static_cast<char>(PackedFieldSeparator.unicode());
    sqlite3_str* const text = GoOn(context, separator);
    if (!text)
        return;
    for (int field = 0; field < count; ++field) {
        if (field > 0)
            sqlite3_str_appendchar(text, 1, separator);
        AppendField(text, values[field]);
    }
}

void AddId(sqlite3_context* context, int, sqlite3_value** values)
{
    if (sqlite3_str* const text = GoOn(context, '\t'))
        AppendId(text, sqlite3_value_int64(values[0]));
}

void FinishText(sqlite3_context* context)
{
    JoinedText* joined = JoinedOf(context);
    if (!joined || !joined->text)
        return;
    const int state = sqlite3_str_errcode(joined->text);
    const int size = sqlite3_str_length(joined->text);
    char* text = sqlite3_str_finish(joined->text);
    joined->text = nullptr;
    if (state != SQLITE_OK) {
        sqlite3_free(text);
        sqlite3_result_error_code(context, state);
        return;
    }
    sqlite3_result_text(context, text, size, sqlite3_free);
}

void PlainKey(sqlite3_context* context, int, sqlite3_value** values)
{
    const unsigned char* const text = sqlite3_value_text(values[0]);
    if (!text)
        return;
    std::string_view name(reinterpret_cast<const char*>(text),
                          static_cast<size_t>(sqlite3_value_bytes(values[0])));
    while (name.starts_with(' '))
        name.remove_prefix(1);
    while (name.ends_with(' '))
        name.remove_suffix(1);
    std::string key(name);
    for (char& letter : key) {
        if (letter >= 'A' && letter <= 'Z')
            letter |= 0x20;
    }
    sqlite3_result_text(context, key.data(), static_cast<int>(key.size()), SQLITE_TRANSIENT);
}

bool AddAggregate(sqlite3* connection, const char* name, int values,
                  void (*add)(sqlite3_context*, int, sqlite3_value**))
{
    return sqlite3_create_function_v2(connection, name, values, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                      nullptr, add, FinishText, nullptr) == SQLITE_OK;
}

} // namespace

bool AddListFunctions(sqlite3* connection)
{
    constexpr int anyNumber = -1;
    return sqlite3_create_function_v2(connection, "plain_key", 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                      PlainKey, nullptr, nullptr, nullptr) == SQLITE_OK &&
           AddAggregate(connection, "pair_list", 2, AddPair) &&
           AddAggregate(connection, "id_list", 1, AddId) &&
           AddAggregate(connection, "packed_rows", anyNumber, AddRow);
}
