// clsAvisos: hears what the library says in its thread.
#include <algorithm>
#include <array>
#include <new>

#include "automation/current_call.h"
#include "automation/enumerator.h"
#include "library/clsAvisos.h"
#include "notices/notice_record.h"
#include "notices/preset_answers.h"
#include "runtime/failure.h"
#include "services/announcer.h"

namespace kovrel {

/// Lives on while it is asked, even when a handler of the event lets go of its clsAvisos.
class clsAvisos::Hearing final : public Listener {
 public:
    explicit Hearing(EventSource& events) : events_(&events) {
        for (auto& note : take_unheard()) record.add(std::move(note));
    }

    [[nodiscard]] Reply hear(const Announcement& announcement) noexcept override {
        try {
            Reply reply{mode == eModoAvisos::maMostrar, answers.answer_to(announcement),
                        note(announcement)};
            reply.note->answer = reply.answer;
            if (has_listeners()) tell(announcement, reply);
            if (reply.is_shown) reply.note->answer = Answer::none;
            return reply;
        } catch (const std::bad_alloc&) {
            return {mode == eModoAvisos::maMostrar, default_answer(announcement), nullptr};
        }
    }

    [[nodiscard]] bool hear_progress(const Announcement& announcement) noexcept override {
        try {
            note(announcement)->answer = Answer::ok;
            return has_listeners() && is_canceled(announcement);
        } catch (const std::bad_alloc&) {
            return false;
        }
    }

    /// When the clsAvisos is gone.
    void forget_events() noexcept { events_ = nullptr; }

    eModoAvisos mode = has_interactive_desktop() ? eModoAvisos::maMostrar : eModoAvisos::maSilencio;
    NoticeRecord record;
    PresetAnswers answers;

 private:
    /// What a handler itself makes the library say is no event: it would be called for ever.
    class Telling {
     public:
        explicit Telling(bool& telling) noexcept : telling_(telling) { telling_ = true; }
        Telling(const Telling&) = delete;
        Telling& operator=(const Telling&) = delete;
        ~Telling() { telling_ = false; }

     private:
        bool& telling_;
    };

    [[nodiscard]] bool has_listeners() const noexcept {
        return events_ != nullptr && events_->has_sinks() && !is_telling_;
    }

    std::shared_ptr<NotedAnnouncement> note(const Announcement& announcement) {
        auto result = noted(announcement);
        if (mode != eModoAvisos::maEvento) record.add(result);
        return result;
    }

    void tell(const Announcement& announcement, Reply& reply) {
        const Telling telling(is_telling_);
        const auto aviso = clsAviso::of(reply.note);
        auto answer = static_cast<LONG>(reply.answer);
        VARIANT_BOOL is_shown = reply.is_shown ? VARIANT_TRUE : VARIANT_FALSE;
        std::array<VARIANT, 3> arguments{};
        arguments[0].vt = VT_DISPATCH;
        arguments[0].pdispVal = aviso.get();
        arguments[1].vt = VT_BYREF | VT_I4;
        arguments[1].plVal = &answer;
        arguments[2].vt = VT_BYREF | VT_BOOL;
        arguments[2].pboolVal = &is_shown;
        events_->fire(event_aviso, arguments);
        if (allows(announcement, static_cast<Answer>(answer))) {
            reply.answer = static_cast<Answer>(answer);
            reply.note->answer = reply.answer;
        }
        reply.is_shown = is_shown != VARIANT_FALSE && mode != eModoAvisos::maSilencio;
    }

    bool is_canceled(const Announcement& announcement) {
        const Telling telling(is_telling_);
        const Variant message(announcement.text);
        VARIANT_BOOL is_canceled = VARIANT_FALSE;
        std::array<VARIANT, 3> arguments{};
        arguments[0].vt = VT_I4;
        arguments[0].lVal = announcement.percentage;
        arguments[1] = message;
        arguments[2].vt = VT_BYREF | VT_BOOL;
        arguments[2].pboolVal = &is_canceled;
        events_->fire(event_progreso, arguments);
        return is_canceled != VARIANT_FALSE;
    }

    const CallWatch calls_;  // so that the member that speaks is known
    EventSource* events_;
    bool is_telling_ = false;
};

clsAvisos::clsAvisos() : hearing_(std::make_shared<Hearing>(events)) {
    attach(hearing_);
}

clsAvisos::~clsAvisos() {
    detach(*hearing_);
    hearing_->forget_events();
}

eModoAvisos clsAvisos::get_Modo() const {
    return hearing_->mode;
}

void clsAvisos::set_Modo(eModoAvisos mode) {
    const bool is_known = mode == eModoAvisos::maSilencio || mode == eModoAvisos::maEvento ||
                          (mode == eModoAvisos::maMostrar && has_interactive_desktop());
    if (!is_known) throw Failure(FailureNumber::invalid_argument);
    hearing_->mode = mode;
}

std::int32_t clsAvisos::get_Limite() const {
    return static_cast<std::int32_t>(hearing_->record.limit());
}

void clsAvisos::set_Limite(std::int32_t limit) {
    if (limit < 0) throw Failure(FailureNumber::invalid_argument);
    hearing_->record.set_limit(static_cast<std::size_t>(limit));
}

void clsAvisos::Respuestas(std::int32_t Estilo, std::int32_t Respuesta, std::wstring_view Texto) {
    hearing_->answers.set(Estilo, Texto, static_cast<Answer>(Respuesta));
}

std::int32_t clsAvisos::get_Count() const {
    return static_cast<std::int32_t>(hearing_->record.entries().size());
}

InstanceOf<clsAviso> clsAvisos::Item(std::int32_t Indice) const {
    if (Indice < 1 || Indice > get_Count()) throw Failure(FailureNumber::subscript_out_of_range);
    return clsAviso::of(hearing_->record.entries()[static_cast<std::size_t>(Indice) - 1]);
}

ComPtr<IUnknown> clsAvisos::get_NewEnum() const {
    std::vector<Variant> values;
    for (const auto& entry : hearing_->record.entries()) values.emplace_back(clsAviso::of(entry));
    return enumeration_of(std::move(values));
}

InstanceOf<clsAviso> clsAvisos::get_Ultimo() const {
    const auto& entries = hearing_->record.entries();
    return entries.empty() ? InstanceOf<clsAviso>() : clsAviso::of(entries.back());
}

std::wstring clsAvisos::ATexto() const {
    return hearing_->record.text();
}

void clsAvisos::Limpia() {
    hearing_->record.clear();
}

}  // namespace kovrel
