// The arguments that GenerarZip passes to the zip32.dll beside the library, whose results it
// ignores.
#include "tests/automation/zip_spy.h"

#include <cstring>
#include <functional>
#include <thread>

#include "services/text_encoding.h"
#include "tests/automation/zip_installation.h"

namespace kovrel::test {
namespace {

using testing::Each;
using testing::ElementsAre;

class ZipSpy : public Archives {
 protected:
    // One folder for all tests, since the library's copy stays loaded.
    static const Installation& installation() {
        static const Installation made = [] {
            Installation with_spy("spy");
            std::filesystem::copy_file(KOVREL_ZIP_SPY, with_spy.zip32());
            return with_spy;
        }();
        return made;
    }

    void SetUp() override {
        zip_ = installation().create_zip();
        ASSERT_TRUE(zip_);
        // Keeps the DLL and its record loaded after the library's call.
        spy_ = LoadLibraryW(installation().zip32().c_str());
        ASSERT_NE(spy_, nullptr);
        const auto get = reinterpret_cast<GetZipSpyRecord>(
            reinterpret_cast<void*>(GetProcAddress(spy_, "zip_spy_record")));
        ASSERT_NE(get, nullptr);
        seen_ = get();
        *seen_ = {};
    }
    void TearDown() override { FreeLibrary(spy_); }

    /// Runs an action while the replacement is working on an archive.
    void while_at_work(std::function<void()> action) {
        action_ = std::move(action);
        seen_->context = &action_;
        seen_->at_work = [](void* context) { (*static_cast<std::function<void()>*>(context))(); };
    }

    HMODULE spy_ = nullptr;
    ZipSpyRecord* seen_ = nullptr;
    std::function<void()> action_;
};

TEST_F(ZipSpy, ThreeCallsInTheirOrder) {
    BoxWatcher no_box;
    for (const bool with_record : {false, true}) {
        with_record_ = with_record;
        *seen_ = {};
        seen_->makes_archive = true;
        DeleteFileW(path("a.zip").c_str());
        EXPECT_EQ(generate(L"a.zip", {file("a.txt", "1")}), path("a.zip"));
        EXPECT_STREQ(seen_->calls, "ioa");
    }
}

TEST_F(ZipSpy, FourCallbacksThatAnswerZero) {
    seen_->print_answers[0] = seen_->print_answers[1] = seen_->print_answers[2] = -1;
    seen_->password_answer = seen_->comment_answer = seen_->service_answer = -1;
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {file("a.txt", "1")}), L"");
    ASSERT_STREQ(seen_->calls, "ioa");
    EXPECT_THAT(seen_->callbacks, Each(testing::NotNull()));
    EXPECT_NE(seen_->callbacks[0], seen_->callbacks[1]);
    EXPECT_NE(seen_->callbacks[0], seen_->callbacks[2]);
    EXPECT_NE(seen_->callbacks[1], seen_->callbacks[2]);
    EXPECT_EQ(seen_->callbacks[2], seen_->callbacks[3]);
    EXPECT_THAT(seen_->print_answers, Each(0));
    EXPECT_EQ(seen_->password_answer, 0);
    EXPECT_EQ(seen_->comment_answer, 0);
    EXPECT_EQ(seen_->service_answer, 0);
    EXPECT_TRUE(seen_->buffers_are_untouched);
}

TEST_F(ZipSpy, TheOptions) {
    std::fill(std::begin(seen_->integers), std::end(seen_->integers), -1);
    seen_->level = 0xFF;
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {file("a.txt", "1")}), L"");
    for (int position = 1; position <= 27; ++position) {
        const bool set = position == 6 || position == 9 || position == 10 || position == 13;
        EXPECT_EQ(seen_->integers[position - 1], set ? 1 : 0) << position;
    }
    EXPECT_EQ(seen_->level, 0);
    EXPECT_TRUE(seen_->first_text_is_empty);
    EXPECT_TRUE(seen_->second_text_is_null);
}

TEST_F(ZipSpy, CountPathAndNamesInTheAnsiCodePage) {
    // The files need not exist: only the DLL opens them.
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"Año – 5 €.zip", {L"C:\\señal ñ.txt", L"d\\ÁÉÍÓÚ.txt", L"", L"tras"}), L"");
    EXPECT_EQ(seen_->count, 2);
    EXPECT_EQ(seen_->archive, to_ansi(folder() + L"\\Año – 5 €.zip"));
    EXPECT_THAT(std::string(seen_->archive), testing::EndsWith("A\xF1o \x96 5 \x80.zip"));
    EXPECT_STREQ(seen_->names[0],
                 "C:\\se\xF1"
                 "al \xF1.txt");
    EXPECT_STREQ(seen_->names[1], "d\\\xC1\xC9\xCD\xD3\xDA.txt");
    EXPECT_STREQ(seen_->names[2], "");
    // The whole record is passed; the count tells where the list ends.
    EXPECT_STREQ(seen_->names[3], "tras");
    EXPECT_STREQ(seen_->names[99], "");
    EXPECT_EQ(generate(L"a.zip", std::vector<std::wstring>(100, L"f")), L"");
    EXPECT_EQ(seen_->count, 100);
    EXPECT_STREQ(seen_->names[99], "f");
    EXPECT_EQ(generate(L"b.zip", L"", {L"f"}), L"");
    EXPECT_STREQ(seen_->archive, "b.zip");
}

TEST_F(ZipSpy, ItsResultsAreIgnored) {
    BoxWatcher no_box;
    struct Answers {
        int first;
        int last;
        bool makes_archive;
    };
    for (const auto& [first, last, makes_archive] : {Answers{0, 16, true}, Answers{-1, -1, true},
                                                     Answers{0, 3, false}, Answers{1, 0, false}}) {
        *seen_ = {};
        seen_->init_answer = seen_->options_answer = first;
        seen_->archive_answer = last;
        seen_->makes_archive = makes_archive;
        DeleteFileW(path("a.zip").c_str());
        EXPECT_EQ(generate(L"a.zip", {L"f"}), makes_archive ? path("a.zip") : L"");
        EXPECT_STREQ(seen_->calls, "ioa");
    }
}

TEST_F(ZipSpy, AnExistingFileIsNotTouched) {
    file("a.zip", "queda");
    put(zip_.get(), L"AppOrigen", Variant(L"Copias"));
    seen_->archive_answer = 5;
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(generate(L"a.zip", {L"f"}), path("a.zip"));
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(narrow(boxes.seen()[0].text), narrow(replaced_text));
    EXPECT_EQ(seen_->archive, to_ansi(path("a.zip")));
    EXPECT_EQ(folder_.read("a.zip"), "queda");
}

// The DLL takes one caller at a time.
TEST_F(ZipSpy, TwoApartmentsAreSerialized) {
    std::thread second;
    std::string calls_meanwhile;
    while_at_work([&] {
        if (second.joinable()) return;
        second = std::thread([&] {
            const ComApartment apartment;
            const auto zip = installation().create_zip();
            const Outcome outcome =
                call(zip.get(), L"GenerarZip", {L"b.zip", folder(), list_of({L"g"})});
            EXPECT_EQ(text_of_result(outcome), L"");
        });
        // Until the second call has entered the DLL, or for a second.
        wait_until([&] { return std::strlen(seen_->calls) > 3; }, Milliseconds{1000});
        calls_meanwhile = seen_->calls;
    });
    BoxWatcher no_box;
    EXPECT_EQ(generate(L"a.zip", {L"f"}), L"");
    ASSERT_TRUE(second.joinable());
    second.join();
    EXPECT_EQ(calls_meanwhile, "ioa");
    EXPECT_STREQ(seen_->calls, "ioaioa");
}

// Waiting for its own caller would be a deadlock, so a reentrant call fails.
TEST_F(ZipSpy, AReentrantCallFails) {
    while_at_work([&] {
        seen_->at_work = nullptr;
        EXPECT_EQ(generate(L"b.zip", {L"g"}), L"");
        EXPECT_STREQ(seen_->calls, "ioa");
    });
    BoxWatcher boxes({answer(IDOK)});
    EXPECT_EQ(generate(L"a.zip", {L"f"}), L"");
    ASSERT_EQ(boxes.seen().size(), 1U);
    EXPECT_EQ(
        narrow(boxes.seen()[0].text),
        narrow(L"Error 70\r (Permiso denegado) en procedimiento GenerarZipA del Módulo fZip."));
    // The lock is released afterwards.
    EXPECT_EQ(generate(L"c.zip", {L"h"}), L"");
    EXPECT_STREQ(seen_->calls, "ioaioa");
}

// Never a similar letter, which could name another file.
TEST_F(ZipSpy, CharactersThatTheCodePageLacksBecomeQuestionMarks) {
    BoxWatcher no_box;
    for (const bool with_record : {false, true}) {
        with_record_ = with_record;
        EXPECT_EQ(generate(L"\x03A9.zip", {L"C:\\\x03A9\x4E2D\x0436.txt"}), L"");
        EXPECT_EQ(seen_->archive, to_ansi(folder()) + "\\?.zip");
        EXPECT_STREQ(seen_->names[0], "C:\\???.txt");
    }
}

TEST_F(ZipSpy, NotCalledAfterAFailedCheck) {
    BoxWatcher boxes({answer(IDOK), answer(IDOK), answer(IDOK)});
    EXPECT_EQ(generate(L"", {L"f"}), L"");
    EXPECT_EQ(generate(L"a.zip", folder() + L"\\no", {L"f"}), L"");
    EXPECT_EQ(generate(L"a.zip", {}), L"");
    EXPECT_STREQ(seen_->calls, "");
}

}  // namespace
}  // namespace kovrel::test
