// clsFArchivo as hosts call it: what its members refuse, progress, cancelling, and hosts that fail
// in the middle.
#include "automation/host_object.h"
#include "tests/automation/avisos.h"
#include "tests/support/event_sink.h"
#include "tests/support/every_way.h"
#include "tests/support/scripted_object.h"
#include "tests/support/test_folder.h"

namespace kovrel::test {
namespace {

/// The standard library removes no tree whose paths are this long.
void remove_long_tree(const std::wstring& path) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((path + L"\\*").c_str(), &found);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    do {
        const std::wstring name = found.cFileName;
        if (name == L"." || name == L"..") continue;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            remove_long_tree(path + L'\\' + name);
        } else {
            EXPECT_TRUE(DeleteFileW((path + L'\\' + name).c_str()));
        }
    } while (FindNextFileW(search, &found));
    FindClose(search);
    EXPECT_TRUE(RemoveDirectoryW(path.c_str()));
}

class Archive : public Avisos {
 protected:
    Archive() { set_mode(silent_mode); }

    Answer in(Way way, const wchar_t* member, std::vector<Variant> arguments) {
        return call_in(way, archive_.get(), member, std::move(arguments));
    }

    ComPtr<IDispatch> entries_of(const wchar_t* member,
                                 const std::vector<LateArgument>& arguments) {
        const Outcome outcome = call(archive_.get(), member, arguments);
        EXPECT_EQ(outcome.result, S_OK) << narrow(outcome.description);
        return SUCCEEDED(outcome.result) ? outcome.value.to_object() : nullptr;
    }

    static std::string names_of(const ComPtr<IDispatch>& entries) {
        std::wstring names;
        const std::int32_t count = get(entries.get(), L"Count").value.to_int32();
        for (std::int32_t place = 1; place <= count; ++place) {
            const auto entry = call(entries.get(), L"Item", {Variant(place)}).value.to_object();
            names += get(entry.get(), L"Nombre").value.to_text() + L';';
        }
        return narrow(names);
    }

    static bool flag(const ComPtr<IDispatch>& entries, const wchar_t* name) {
        return get(entries.get(), name).value.to_bool();
    }

    /// What is in the folder, by name.
    [[nodiscard]] std::size_t files_in(const std::wstring& name) const {
        std::error_code none;
        const std::filesystem::directory_iterator found(folder_ / name, none);
        return static_cast<std::size_t>(std::distance(begin(found), end(found)));
    }

    const TestFolder folder_;
    const std::wstring file_ = folder_.write(L"año €.txt", "hola");
    const std::wstring path_ = folder_ / L"ñ \x4E2D.zip";
    ComPtr<IDispatch> archive_ = create(L"Kovrel.clsFArchivo");
};

TEST_F(Archive, WorksInEveryWayOfCalling) {
    for (const Way way : every_way) {
        SCOPED_TRACE(name_of(way));
        const Answer packed = in(way, L"Comprime", {Variant(path_), Variant(file_)});
        ASSERT_EQ(packed.result, S_OK) << narrow(packed.description);
        ASSERT_EQ(packed.value.vt, VT_DISPATCH);
        EXPECT_EQ(names_of(packed.value.to_object()), "año €.txt;");
        EXPECT_EQ(names_of(in(way, L"Lista", {Variant(path_)}).value.to_object()), "año €.txt;");
        const std::wstring target = folder_ / (L"copia " + std::to_wstring(int(way)));
        const Answer taken = in(way, L"Extrae", {Variant(path_), Variant(target)});
        EXPECT_TRUE(flag(taken.value.to_object(), L"Completo"));
        EXPECT_EQ(content_of(target + L"\\año €.txt"), "hola");
        EXPECT_TRUE(flag(in(way, L"Prueba", {Variant(path_)}).value.to_object(), L"Completo"));
    }
}

TEST_F(Archive, FailuresHaveNumberDescriptionAndSource) {
    const std::wstring missing = folder_ / L"nada.zip";
    for (const Way way : every_way) {
        SCOPED_TRACE(name_of(way));
        const Answer listed = in(way, L"Lista", {Variant(missing)});
        EXPECT_EQ(listed.result, failure(53));
        EXPECT_EQ(narrow(listed.description), narrow(L"No se encontró el archivo: " + missing));
        EXPECT_EQ(narrow(listed.source), "Kovrel.clsFArchivo");
        EXPECT_EQ(in(way, L"Lista", {Variant(file_)}).result, failure(321));
        EXPECT_EQ(in(way, L"Comprime", {Variant(path_), Variant(L"")}).result, failure(53));
        EXPECT_EQ(in(way, L"Comprime", {Variant(L""), Variant(file_)}).result, failure(5));
        EXPECT_EQ(in(way, L"Comprime", {Variant(folder_.path()), Variant(file_)}).result,
                  failure(75));
    }
    const Outcome nothing = call(archive_.get(), L"Comprime", {Variant(path_), Variant(15)});
    EXPECT_EQ(nothing.error, failure(53));
    EXPECT_TRUE(nothing.description.starts_with(L"No se encontró el archivo: "));
    EXPECT_TRUE(nothing.description.ends_with(L"\\15"));
    EXPECT_EQ(call(archive_.get(), L"Lista", {Variant(folder_.path())}).error, failure(75));
    EXPECT_EQ(call(archive_.get(), L"Comprime", {Variant(path_), Variant::null()}).error,
              failure(94));
    EXPECT_EQ(call(archive_.get(), L"Comprime", {Variant(path_), Variant::missing()}).error,
              failure(13));
    EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(Archive, PropertiesRefuseWhatTheyCannotBe) {
    const auto refused = [&](const wchar_t* name, const Variant& value) {
        const Variant before = get(archive_.get(), name).value;
        EXPECT_EQ(put(archive_.get(), name, value).error, failure(5)) << narrow(name);
        EXPECT_TRUE(get(archive_.get(), name).value.same_as(before));
    };
    refused(L"Nivel", Variant(-1));
    refused(L"Nivel", Variant(10));
    refused(L"Existentes", Variant(4));
    refused(L"Existentes", Variant(-1));
    refused(L"LimiteBytes", Variant(-1));
    refused(L"LimiteBytes", Variant(9.3e18));
    refused(L"LimiteBytes", Variant(std::numeric_limits<double>::quiet_NaN()));
    refused(L"LimiteProporcion", Variant(0));
}

TEST_F(Archive, LimitsAreCheckedBeforeAnythingIsWritten) {
    const std::wstring zeros = folder_.write(L"ceros", std::string(2'000'000, '\0'));
    entries_of(L"Comprime", {Variant(path_), Variant(zeros)});
    const std::wstring target = folder_ / L"copia";
    EXPECT_EQ(call(archive_.get(), L"Extrae", {Variant(path_), Variant(target)}).error, failure(6));
    put(archive_.get(), L"LimiteProporcion", Variant(2000));
    put(archive_.get(), L"LimiteBytes", Variant(1'999'999.0));
    EXPECT_EQ(call(archive_.get(), L"Extrae", {Variant(path_), Variant(target)}).error, failure(6));
    EXPECT_FALSE(std::filesystem::exists(target));
    put(archive_.get(), L"LimiteBytes", Variant(2'000'000.0));
    EXPECT_TRUE(flag(entries_of(L"Extrae", {Variant(path_), Variant(target)}), L"Completo"));
}

TEST_F(Archive, ProgressIsNotedAndReachesTheEnd) {
    put(archive_.get(), L"AppOrigen", Variant(L"Copias"));
    entries_of(L"Comprime", {Variant(path_), Variant(file_)});
    EXPECT_EQ(narrow(get(last().get(), L"Texto").value.to_text()),
              "Comprimiendo año €.txt (1 de 1 KB)");
    EXPECT_EQ(narrow(get(last().get(), L"Titulo").value.to_text()), "Copias");
    EXPECT_EQ(narrow(get(last().get(), L"Miembro").value.to_text()), "clsFArchivo.Comprime");
    EXPECT_EQ(get(last().get(), L"Porcentaje").value.to_int32(), 100);
    entries_of(L"Prueba", {Variant(path_)});
    EXPECT_EQ(narrow(get(last().get(), L"Texto").value.to_text()),
              "Comprobando año €.txt (1 de 1 KB)");
    entries_of(L"Extrae", {Variant(path_), Variant(folder_ / L"copia")});
    EXPECT_EQ(narrow(get(last().get(), L"Texto").value.to_text()),
              "Extrayendo año €.txt (1 de 1 KB)");
}

TEST_F(Archive, AnEventCancelsAndTheOldArchiveStays) {
    entries_of(L"Comprime", {Variant(path_), Variant(file_)});
    const std::string old = content_of(path_);
    const auto listener =
        EventSink::make(Kovrel::DIID__clsAvisosEvents, [](DISPID /*event*/, DISPPARAMS& given) {
            *given.rgvarg[0].pboolVal = VARIANT_TRUE;
            return S_OK;
        });
    attach(avisos_.get(), Kovrel::DIID__clsAvisosEvents, *listener.get());
    const std::wstring other = folder_.write(L"otro.txt", std::string(600'000, 'x'));
    const auto packed = entries_of(L"Comprime", {Variant(path_), Variant(other)});
    EXPECT_TRUE(flag(packed, L"Cancelado"));
    EXPECT_FALSE(flag(packed, L"Completo"));
    EXPECT_EQ(content_of(path_), old);
    const auto taken = entries_of(L"Extrae", {Variant(path_), Variant(folder_ / L"copia")});
    EXPECT_TRUE(flag(taken, L"Cancelado"));
    EXPECT_TRUE(flag(entries_of(L"Prueba", {Variant(path_)}), L"Cancelado"));
    EXPECT_GT(listener->calls, 2);
}

TEST_F(Archive, TheHostsWindowIsToldAndCancels) {
    const auto window = ScriptedObject::make();
    bool cancels = false;
    std::vector<std::string> told;
    window->method(L"BarraProgresoActualiza", [&](const auto& given) {
        told.push_back(narrow(given[0].to_text() + L' ' + given[1].to_text()));
        return Variant();
    });
    window->method(L"BarraProgresoCancelada", [&](const auto&) {
        Variant result;
        result.vt = VT_BOOL;
        result.boolVal = cancels ? VARIANT_TRUE : VARIANT_FALSE;
        return result;
    });
    const Variant progress{ComPtr<IDispatch>(window.get())};
    const auto packed = entries_of(
        L"Comprime", {Variant(path_), Variant(file_), Variant(L""), Variant(0), progress});
    EXPECT_TRUE(flag(packed, L"Completo"));
    EXPECT_EQ(told, (std::vector<std::string>{"100 Comprimiendo año €.txt (1 de 1 KB)"}));
    EXPECT_EQ(count(), 0);
    cancels = true;
    EXPECT_TRUE(flag(entries_of(L"Extrae", {Variant(path_), Variant(folder_ / L"copia"),
                                            Variant(L""), progress}),
                     L"Cancelado"));
    window->fails(L"BarraProgresoActualiza", {failure(1000), L"Ventana rota"});
    const Outcome failed =
        call(archive_.get(), L"Comprime",
             {Variant(folder_ / L"b.zip"), Variant(file_), Variant(L""), Variant(0), progress});
    EXPECT_EQ(failed.error, failure(1000));
    EXPECT_EQ(narrow(failed.description), "Ventana rota");
    EXPECT_FALSE(std::filesystem::exists(folder_ / L"b.zip"));
}

TEST_F(Archive, TheQuestionIsAnsweredByThePresetAnswer) {
    entries_of(L"Comprime", {Variant(path_), Variant(file_)});
    folder_.write(L"año €.txt", "otra");
    put(archive_.get(), L"Existentes", Variant(3));
    put(archive_.get(), L"AppOrigen", Variant(L"Copias"));
    call(avisos_.get(), L"Respuestas", {Variant(36), Variant(IDNO)});
    entries_of(L"Extrae", {Variant(path_), Variant(folder_.path())});
    EXPECT_EQ(content_of(file_), "otra");
    call(avisos_.get(), L"Limpia");
    call(avisos_.get(), L"Respuestas", {Variant(36), Variant(IDYES)});
    entries_of(L"Extrae", {Variant(path_), Variant(folder_.path())});
    EXPECT_EQ(content_of(file_), "hola");
    const auto question = call(avisos_.get(), L"Item", {Variant(1)}).value.to_object();
    EXPECT_EQ(line_of(question), narrow(L"3|clsFArchivo.Extrae|Copias|Ya existe el fichero \"" +
                                        file_ + L"\".\r¿Desea reemplazarlo?|36|6|0"));
}

TEST_F(Archive, TheResultOutlivesTheArchiveAndItsClass) {
    auto entries = entries_of(L"Comprime", {Variant(path_), Variant(file_)});
    const auto entry = call(entries.get(), L"Item", {Variant(1)}).value.to_object();
    archive_ = nullptr;
    std::filesystem::remove(path_);
    EXPECT_EQ(names_of(entries), "año €.txt;");
    entries = nullptr;
    EXPECT_EQ(narrow(get(entry.get(), L"Ruta").value.to_text()), narrow(file_));
}

TEST_F(Archive, PathsMayBeLongerThanTheClassicLimit) {
    const std::wstring unlimited = LR"(\\?\)";
    std::wstring deep = folder_ / L"larga";
    std::filesystem::create_directory(unlimited + deep);
    for (int level = 0; level < 3; ++level) {
        deep += L'\\' + std::wstring(100, L'x');
        std::filesystem::create_directory(unlimited + deep);
    }
    std::ofstream(std::filesystem::path(unlimited + deep + L"\\a.txt")) << "hola";
    const std::wstring archive = deep + L"\\a.zip";
    EXPECT_TRUE(flag(entries_of(L"Comprime", {Variant(archive), Variant(folder_ / L"larga")}),
                     L"Completo"));
    const std::wstring target = deep + L"\\copia";
    EXPECT_TRUE(flag(entries_of(L"Extrae", {Variant(archive), Variant(target)}), L"Completo"));
    const std::wstring below = deep.substr(folder_.path().size());
    EXPECT_EQ(content_of(unlimited + target + below + L"\\a.txt"), "hola");
    remove_long_tree(unlimited + (folder_ / L"larga"));
}

TEST_F(Archive, NothingLeavesTheFolder) {
    entries_of(L"Comprime", {Variant(path_), Variant(folder_.write(L"aa_aa.txt", "hola"))});
    std::string bytes = content_of(path_);
    // The name stands in the entry's header and in the directory, and its length stays.
    for (const char* const name :
         {"../ab.txt", R"(C:\b.txt)", "/aa_a.txt", "aa:aa.txt", R"(\\a\b\c)"}) {
        SCOPED_TRACE(name);
        std::string hostile = bytes;
        for (std::size_t at = 0; (at = hostile.find("aa_aa.txt", at)) != std::string::npos; ++at) {
            hostile.replace(at, 9, std::string(name).append(9 - std::string(name).size(), 'x'));
        }
        folder_.write(L"mala.zip", hostile);
        const std::wstring target = folder_ / L"fuera";
        const auto taken = entries_of(L"Extrae", {Variant(folder_ / L"mala.zip"), Variant(target)});
        EXPECT_FALSE(flag(taken, L"Completo"));
        const auto entry = call(taken.get(), L"Item", {Variant(1)}).value.to_object();
        EXPECT_EQ(get(entry.get(), L"Estado").value.to_int32(), Kovrel::esNombre);
        EXPECT_EQ(files_in(L"fuera"), 0U);
    }
    EXPECT_FALSE(std::filesystem::exists(folder_ / L"ab.txt"));
}

TEST_F(Archive, AProgressHandlerMayUseTheSameInstance) {
    entries_of(L"Comprime", {Variant(path_), Variant(file_)});
    const auto window = ScriptedObject::make();
    std::string inner;
    window->method(L"BarraProgresoActualiza", [&](const auto&) {
        inner = names_of(entries_of(L"Lista", {Variant(path_)}));
        return Variant();
    });
    window->method(L"BarraProgresoCancelada");
    const Variant progress{ComPtr<IDispatch>(window.get())};
    entries_of(L"Comprime",
               {Variant(path_), Variant(folder_.write(L"b")), Variant(L""), Variant(1), progress});
    EXPECT_EQ(names_of(entries_of(L"Lista", {Variant(path_)})), "año €.txt;b;");
    EXPECT_EQ(inner, "año €.txt;");
}

}  // namespace
}  // namespace kovrel::test
