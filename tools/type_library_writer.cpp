#include "tools/type_library_writer.h"

#include <deque>
#include <map>
#include <ocidl.h>
#include <vector>

#include "automation/com_ptr.h"
#include "automation/variant.h"
#include "runtime/failure.h"
#include "tools/declared_text.h"
#include "tools/type_library_repair.h"

namespace kovrel {
namespace {

/// The platform's own library of basic types, for IDispatch and IPictureDisp.
constexpr GUID stdole_id{
    0x00020430, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
constexpr WORD stdole_major = 2;

void check(HRESULT result) {
    if (FAILED(result)) throw Failure(result, L"No se pudo escribir la biblioteca de tipos");
}

OLECHAR* text(const wchar_t* value) {
    return const_cast<OLECHAR*>(value);
}

/// Type descriptions of one member, alive until the member is added.
class TypeWriter {
 public:
    using Reference = HREFTYPE (*)(void* context, const TypeRef& type);

    TypeWriter(void* context, Reference reference) : context_(context), reference_(reference) {}

    /// The type as a value is passed: interfaces are pointers, references one pointer more.
    TYPEDESC of(const TypeRef& type, bool by_reference) {
        TYPEDESC result{};
        result.vt = type.type;
        if (type.type == VT_USERDEFINED) {
            result.hreftype = reference_(context_, type);
            if (type.instance_of != nullptr || type.picture) result = pointer_to(result);
        }
        return by_reference ? pointer_to(result) : result;
    }

 private:
    TYPEDESC pointer_to(const TYPEDESC& target) {
        pointed_.push_back(target);
        TYPEDESC result{};
        result.vt = VT_PTR;
        result.lptdesc = &pointed_.back();
        return result;
    }

    void* context_;
    Reference reference_;
    std::deque<TYPEDESC> pointed_;
};

class LibraryWriter {
 public:
    LibraryWriter(const LibraryInfo& library, const std::wstring& path, SYSKIND system)
        : library_(library) {
        check(CreateTypeLib2(system, path.c_str(), library_writer_.put()));
        check(LoadRegTypeLib(stdole_id, stdole_major, 0, LOCALE_NEUTRAL, stdole_.put()));
    }

    void write() {
        check(library_writer_->SetName(text(library_.name)));
        check(library_writer_->SetGuid(library_.id));
        check(library_writer_->SetVersion(library_.major, library_.minor));
        check(library_writer_->SetLcid(LOCALE_NEUTRAL));
        check(library_writer_->SetDocString(text(library_.help)));
        for (const EnumInfo* entry : library_.enumerations) write_enumeration(*entry);
        for (const RecordInfo* entry : library_.records) write_record(*entry);
        // Interfaces can refer to each other, so all of them are created before the first is
        // filled.
        for (const ClassInfo* entry : library_.classes) begin_interface(*entry);
        for (const ClassInfo* entry : library_.classes) write_interface(*entry);
        for (const ClassInfo* entry : library_.classes) {
            if (entry->events != nullptr) write_events(*entry->events);
        }
        for (const ClassInfo* entry : library_.classes) write_class(*entry);
        check(library_writer_->SaveAllChanges());
    }

 private:
    ComPtr<ICreateTypeInfo> create(const wchar_t* name, TYPEKIND kind, const GUID& id,
                                   const wchar_t* help) {
        ComPtr<ICreateTypeInfo> type;
        check(library_writer_->CreateTypeInfo(text(name), kind, type.put()));
        check(type->SetGuid(id));
        check(type->SetDocString(text(help)));
        check(type->SetVersion(library_.major, library_.minor));
        return type;
    }

    void write_enumeration(const EnumInfo& info) {
        auto type = create(info.name, TKIND_ENUM, info.id, info.help);
        UINT index = 0;
        for (const EnumInfo::Value& value : info.values) {
            Variant constant(value.value);
            VARDESC description{};
            description.memid = static_cast<MEMBERID>(index);
            description.varkind = VAR_CONST;
            description.lpvarValue = &constant;
            description.elemdescVar.tdesc.vt = VT_I4;
            check(type->AddVarDesc(index, &description));
            check(type->SetVarName(index, text(value.name)));
            check(type->SetVarDocString(index, text(value.help)));
            ++index;
        }
        check(type->LayOut());
        user_types_[&info] = std::move(type);
    }

    void write_record(const RecordInfo& info) {
        auto type = create(info.name, TKIND_RECORD, info.id, info.help);
        ARRAYDESC array{};
        array.tdescElem.vt = VT_BSTR;
        array.cDims = 1;
        array.rgbounds[0] = {info.size, 0};
        VARDESC description{};
        description.varkind = VAR_PERINSTANCE;
        description.elemdescVar.tdesc.vt = VT_CARRAY;
        description.elemdescVar.tdesc.lpadesc = &array;
        check(type->AddVarDesc(0, &description));
        check(type->SetVarName(0, text(info.field)));
        check(type->LayOut());
        user_types_[&info] = std::move(type);
    }

    void begin_interface(const ClassInfo& info) {
        auto type = create(info.interface_name, TKIND_INTERFACE, info.interface_id, info.help);
        // Not extensible: compilers reject names that are not declared.
        check(type->SetTypeFlags(TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION | TYPEFLAG_FDISPATCHABLE |
                                 TYPEFLAG_FNONEXTENSIBLE));
        user_types_[&info] = std::move(type);
    }

    void add_base(ICreateTypeInfo& type) {
        ComPtr<ITypeInfo> dispatch;
        check(stdole_->GetTypeInfoOfGuid(IID_IDispatch, dispatch.put()));
        HREFTYPE base = 0;
        check(type.AddRefTypeInfo(dispatch.get(), &base));
        check(type.AddImplType(0, base));
    }

    void write_interface(const ClassInfo& info) {
        ICreateTypeInfo& type = *user_types_.at(&info).get();
        add_base(type);
        UINT index = 0;
        for (const MemberInfo& member : info.members) {
            FUNCDESC function{};
            function.memid = info.published(member.id);
            // Hosts ask for it by its number, and do not list it.
            if (function.memid == DISPID_NEWENUM) function.wFuncFlags = FUNCFLAG_FRESTRICTED;
            function.funckind = FUNC_PUREVIRTUAL;
            function.invkind = invoke_kind(member.kind);
            function.elemdescFunc.tdesc.vt = VT_HRESULT;
            write_function(type, index++, function, member);
        }
        check(type.LayOut());
    }

    void write_events(const EventsInfo& info) {
        auto type = create(info.name, TKIND_DISPATCH, info.id, info.help);
        // Not listed: hosts find it with the class that it belongs to.
        check(type->SetTypeFlags(TYPEFLAG_FDISPATCHABLE | TYPEFLAG_FHIDDEN));
        add_base(*type.get());
        UINT index = 0;
        for (const EventsInfo::Event& event : info.events) {
            FUNCDESC function{};
            function.memid = event.id;
            function.funckind = FUNC_DISPATCH;
            function.invkind = INVOKE_FUNC;
            function.elemdescFunc.tdesc.vt = VT_VOID;
            write_function(*type.get(), index++, function, method_of(event));
        }
        check(type->LayOut());
        user_types_[&info] = std::move(type);
    }

    void write_function(ICreateTypeInfo& type, UINT index, FUNCDESC function,
                        const MemberInfo& member) {
        struct Context {
            LibraryWriter& writer;
            ICreateTypeInfo& type;
        } context{*this, type};
        TypeWriter types(&context, [](void* opaque, const TypeRef& wanted) {
            const auto& [writer, user] = *static_cast<Context*>(opaque);
            return writer.reference(user, wanted);
        });

        std::vector<ELEMDESC> parameters;
        std::vector<PARAMDESCEX> defaults(member.parameters.size());
        std::vector<OLECHAR*> names{text(member.name)};
        for (std::size_t at = 0; at < member.parameters.size(); ++at) {
            const ParameterInfo& parameter = member.parameters[at];
            ELEMDESC description{};
            description.tdesc = types.of(parameter.type, parameter.by_reference);
            WORD flags = PARAMFLAG_FIN;
            if (parameter.by_reference) flags |= PARAMFLAG_FOUT;
            if (parameter.optional) flags |= PARAMFLAG_FOPT;
            if (parameter.declared_default != nullptr) {
                flags |= PARAMFLAG_FHASDEFAULT;
                defaults[at].cBytes = sizeof(PARAMDESCEX);
                defaults[at].varDefaultValue = writable(*parameter.declared_default);
                description.paramdesc.pparamdescex = &defaults[at];
            }
            description.paramdesc.wParamFlags = flags;
            parameters.push_back(description);
            if (parameter.name != nullptr) names.push_back(text(parameter.name));
        }
        if (member.result.type != VT_VOID) {
            ELEMDESC description{};
            description.tdesc = types.of(member.result, true);
            description.paramdesc.wParamFlags = PARAMFLAG_FOUT | PARAMFLAG_FRETVAL;
            parameters.push_back(description);
        }

        function.callconv = CC_STDCALL;
        function.cParams = static_cast<SHORT>(parameters.size());
        function.lprgelemdescParam = parameters.data();
        check(type.AddFuncDesc(index, &function));
        check(type.SetFuncAndParamNames(index, names.data(), static_cast<UINT>(names.size())));
        check(type.SetFuncDocString(index, text(member.help)));
    }

    /// Not every writer of type libraries can store a date; compilers take a whole day count for
    /// one. The value is borrowed.
    static VARIANT writable(const VARIANT& value) {
        VARIANT result = value;
        if (value.vt == VT_DATE) {
            result.vt = VT_I4;
            result.lVal = static_cast<LONG>(value.date);
        }
        return result;
    }

    static INVOKEKIND invoke_kind(MemberKind kind) {
        switch (kind) {
            case MemberKind::property_get:
                return INVOKE_PROPERTYGET;
            case MemberKind::property_put:
                return INVOKE_PROPERTYPUT;
            case MemberKind::property_put_object:
                return INVOKE_PROPERTYPUTREF;
            case MemberKind::method:
                break;
        }
        return INVOKE_FUNC;
    }

    HREFTYPE reference(ICreateTypeInfo& user, const TypeRef& wanted) {
        ComPtr<ITypeInfo> target;
        if (wanted.picture) {
            check(stdole_->GetTypeInfoOfGuid(IID_IPictureDisp, target.put()));
        } else {
            const void* key = wanted.enumeration;
            if (wanted.record != nullptr) key = wanted.record;
            if (wanted.instance_of != nullptr) key = wanted.instance_of;
            target = user_types_.at(key).query<ITypeInfo>();
        }
        HREFTYPE result = 0;
        check(user.AddRefTypeInfo(target.get(), &result));
        return result;
    }

    void write_class(const ClassInfo& info) {
        const auto type = create(info.name, TKIND_COCLASS, info.class_id, info.help);
        UINT flags = info.instancing == Instancing::given ? 0 : TYPEFLAG_FCANCREATE;
        if (info.instancing == Instancing::global) flags |= TYPEFLAG_FAPPOBJECT;
        check(type->SetTypeFlags(flags));
        add_interface(*type.get(), 0, &info, IMPLTYPEFLAG_FDEFAULT);
        if (info.events != nullptr) {
            add_interface(*type.get(), 1, info.events,
                          IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
        }
        check(type->LayOut());
    }

    void add_interface(ICreateTypeInfo& type, UINT index, const void* key, INT flags) {
        const auto interface_type = user_types_.at(key).query<ITypeInfo>();
        HREFTYPE reference = 0;
        check(type.AddRefTypeInfo(interface_type.get(), &reference));
        check(type.AddImplType(index, reference));
        check(type.SetImplTypeFlags(index, flags));
    }

    const LibraryInfo& library_;
    ComPtr<ICreateTypeLib2> library_writer_;
    ComPtr<ITypeLib> stdole_;
    std::map<const void*, ComPtr<ICreateTypeInfo>> user_types_;
};

}  // namespace

void write_type_library(const LibraryInfo& library, const std::wstring& path, SYSKIND system) {
    LibraryWriter(library, path, system).write();
    // Types are stored in the order in which they were created.
    std::vector<RecordSize> sizes;
    const std::uint32_t pointer_size = system == SYS_WIN64 ? 8 : 4;
    for (const RecordInfo* record : library.records) {
        sizes.push_back({library.enumerations.size() + sizes.size(), record->size * pointer_size});
    }
    write_record_sizes(path, sizes);
    write_true_defaults(path);
}

}  // namespace kovrel
