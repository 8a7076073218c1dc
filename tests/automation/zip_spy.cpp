// A replacement for zip32.dll that records its arguments.
#include "tests/automation/zip_spy.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

using kovrel::test::ZipSpyRecord;

// The parameters as the callbacks declare them; that of the comment has two.
using Print = int(__stdcall*)(char* text, unsigned long length);
using Password = int(__stdcall*)(char* room, int size, const char* prompt, const char* name);
using Comment = int(__stdcall*)(char* text, unsigned long length);

constexpr std::size_t print_room = 4097;
constexpr std::size_t level_offset = 108;
constexpr std::size_t texts_offset = 112;

ZipSpyRecord record{};

void note_call(char call) {
    const std::size_t length = std::strlen(record.calls);
    if (length + 1 < sizeof(record.calls)) record.calls[length] = call;
}

template <std::size_t Size>
void copy_text(char (&room)[Size], const char* text) {
    std::snprintf(room, Size, "%s", text == nullptr ? "(null)" : text);
}

const char* pointer_at(const char* bytes, std::size_t offset) {
    const char* pointer = nullptr;
    std::memcpy(&pointer, bytes + offset, sizeof(pointer));
    return pointer;
}

template <typename Function>
Function callback(std::size_t index) {
    return reinterpret_cast<Function>(const_cast<void*>(record.callbacks[index]));
}

bool is_filled(const char* bytes, std::size_t length, char filler) {
    return std::all_of(bytes, bytes + length, [=](char byte) { return byte == filler; });
}

void call_back() {
    char buffer[print_room];
    bool untouched = true;
    const std::size_t lengths[] = {0, 5, print_room - 1};
    for (std::size_t i = 0; i < 3; ++i) {
        std::memset(buffer, 0, sizeof(buffer));
        std::memset(buffer, 'x', lengths[i]);
        record.print_answers[i] =
            callback<Print>(0)(buffer, static_cast<unsigned long>(lengths[i]));
        untouched = untouched && is_filled(buffer, lengths[i], 'x') &&
                    is_filled(buffer + lengths[i], sizeof(buffer) - lengths[i], '\0');
    }
    std::memset(buffer, 'p', sizeof(buffer));
    record.password_answer = callback<Password>(1)(buffer, 81, "Enter password: ", "a.txt");
    record.comment_answer = callback<Comment>(2)(buffer, sizeof(buffer));
    record.service_answer = callback<Comment>(3)(buffer, 7);
    record.buffers_are_untouched = untouched && is_filled(buffer, sizeof(buffer), 'p');
}

}  // namespace

extern "C" {

ZipSpyRecord* zip_spy_record() {
    return &record;
}

int __stdcall ZpInit(const void* callbacks) {
    note_call('i');
    std::memcpy(record.callbacks, callbacks, sizeof(record.callbacks));
    return record.init_answer;
}

int __stdcall ZpSetOptions(const char* options) {
    note_call('o');
    std::memcpy(record.integers, options, sizeof(record.integers));
    record.level = static_cast<std::uint8_t>(options[level_offset]);
    const char* const first = pointer_at(options, texts_offset);
    record.first_text_is_empty = first != nullptr && first[0] == '\0';
    record.second_text_is_null = pointer_at(options, texts_offset + sizeof(void*)) == nullptr;
    return record.options_answer;
}

int __stdcall ZpArchive(int count, const char* archive, const char* const* names) {
    note_call('a');
    record.count = count;
    copy_text(record.archive, archive);
    for (std::size_t i = 0; i < 100; ++i) copy_text(record.names[i], names[i]);
    call_back();
    if (record.at_work != nullptr) record.at_work(record.context);
    if (record.makes_archive) {
        CloseHandle(CreateFileA(archive, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    return record.archive_answer;
}

}  // extern "C"
