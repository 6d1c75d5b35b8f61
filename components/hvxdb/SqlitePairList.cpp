#include "components/hvxdb/SqlitePairList.h"

#include <array>
#include <charconv>
#include <sqlite3.h>

namespace {

/// What one list has so far; SQLite keeps it, zeroed at first.
struct PairList
{
    sqlite3_str* text;
};

PairList* ListOf(sqlite3_context* context)
{
    return static_cast<PairList*>(sqlite3_aggregate_context(context, sizeof(PairList)));
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
    PairList* list = ListOf(context);
    if (!list) {
        sqlite3_result_error_nomem(context);
        return;
    }
    if (!list->text)
        list->text = sqlite3_str_new(sqlite3_context_db_handle(context));
    else
        sqlite3_str_appendchar(list->text, 1, '\t');
    const unsigned char* name = sqlite3_value_text(values[0]);
    if (name)
        AppendName(list->text, name, sqlite3_value_bytes(values[0]));
    sqlite3_str_appendchar(list->text, 1, '\t');
    AppendId(list->text, sqlite3_value_int64(values[1]));
}

void FinishList(sqlite3_context* context)
{
    PairList* list = ListOf(context);
    if (!list || !list->text)
        return;
    const int state = sqlite3_str_errcode(list->text);
    const int size = sqlite3_str_length(list->text);
    char* text = sqlite3_str_finish(list->text);
    list->text = nullptr;
    if (state != SQLITE_OK) {
        sqlite3_free(text);
        sqlite3_result_error_code(context, state);
        return;
    }
    sqlite3_result_text(context, text, size, sqlite3_free);
}

} // namespace

bool AddPairListFunction(sqlite3* connection)
{
    return sqlite3_create_function_v2(connection, "pair_list", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                                      nullptr, AddPair, FinishList, nullptr) == SQLITE_OK;
}
