#include "database.h"

#include <array>
#include <cstring>
#include <new>
#include <sqlext.h>
#include <sqlucode.h>

namespace ficha {
namespace {

constexpr std::size_t chunk = std::size_t{64} * 1024;

[[noreturn]] void fail(SQLSMALLINT kind, SQLHANDLE handle) {
    std::array<wchar_t, 6> state{};
    std::array<wchar_t, SQL_MAX_MESSAGE_LENGTH> text{};
    SQLINTEGER number = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result = SQLGetDiagRecW(kind, handle, 1, state.data(), &number, text.data(),
                                            static_cast<SQLSMALLINT>(text.size()), &length);
    DatabaseFailure failure;
    failure.description = SQL_SUCCEEDED(result) ? text.data() : L"La base de datos no contesta.";
    failure.state = state.data();
    failure.number = number;
    throw failure;
}

void check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle) {
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) fail(kind, handle);
}

DatabaseHandle new_handle(SQLSMALLINT kind, SQLHANDLE parent, SQLSMALLINT parent_kind) {
    SQLHANDLE handle = nullptr;
    const SQLRETURN result = SQLAllocHandle(kind, parent, &handle);
    if (!SQL_SUCCEEDED(result)) fail(parent_kind, parent);
    return {handle, HandleCloser{kind}};
}

SQLWCHAR* text_of(const std::wstring& text) {
    return const_cast<SQLWCHAR*>(text.c_str());
}

/// A value as ODBC takes it; it refers to the value's own memory.
struct Parameter {
    SQLSMALLINT c_type = SQL_C_WCHAR;
    SQLSMALLINT sql_type = SQL_WLONGVARCHAR;
    void* data = nullptr;
    SQLLEN size = 0;
};

Parameter parameter_of(Value& value) {
    switch (value.vt) {
        case VT_EMPTY:
        case VT_NULL:
            return {SQL_C_WCHAR, SQL_WVARCHAR, nullptr, SQL_NULL_DATA};
        case VT_BOOL:
            value = Value(static_cast<std::int32_t>(value.to_bool() ? 1 : 0));
            return {SQL_C_SLONG, SQL_INTEGER, &value.lVal, 0};
        case VT_I4:
            return {SQL_C_SLONG, SQL_INTEGER, &value.lVal, 0};
        case VT_R8:
            return {SQL_C_DOUBLE, SQL_DOUBLE, &value.dblVal, 0};
        case VT_ARRAY | VT_UI1:
            return {SQL_C_BINARY, SQL_LONGVARBINARY, value.parray->pvData,
                    static_cast<SQLLEN>(value.parray->rgsabound[0].cElements)};
        case VT_DATE: {
            SYSTEMTIME time{};
            VariantTimeToSystemTime(value.date, &time);
            std::array<wchar_t, 20> text{};
            swprintf(text.data(), text.size(), L"%04u-%02u-%02u", time.wYear, time.wMonth,
                     time.wDay);
            value = Value(text.data());
            break;
        }
        default:
            value = Value(value.to_text());
            break;
    }
    return {SQL_C_WCHAR, SQL_WLONGVARCHAR, value.bstrVal,
            static_cast<SQLLEN>(SysStringByteLen(value.bstrVal))};
}

Value bytes_value(const std::string& content) {
    Value value;
    value.parray = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(content.size()));
    if (value.parray == nullptr) throw std::bad_alloc();
    value.vt = VT_ARRAY | VT_UI1;
    if (!content.empty()) std::memcpy(value.parray->pvData, content.data(), content.size());
    return value;
}

std::wstring text_in(const std::string& content) {
    std::wstring text(content.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), content.data(), text.size() * sizeof(wchar_t));
    return text;
}

}  // namespace

void HandleCloser::operator()(SQLHANDLE handle) const noexcept {
    if (kind == SQL_HANDLE_DBC) SQLDisconnect(handle);
    SQLFreeHandle(kind, handle);
}

Database::Database(const std::wstring& connection)
    : environment_(new_handle(SQL_HANDLE_ENV, nullptr, SQL_HANDLE_ENV)) {
    SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION,
                  reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    connection_ = new_handle(SQL_HANDLE_DBC, environment_.get(), SQL_HANDLE_ENV);
    check(SQLDriverConnectW(connection_.get(), nullptr, text_of(connection), SQL_NTS, nullptr, 0,
                            nullptr, SQL_DRIVER_NOPROMPT),
          SQL_HANDLE_DBC, connection_.get());
}

Statement::Statement(const Database& database, const std::wstring& text,
                     const std::vector<Value>& values)
    : statement_(new_handle(SQL_HANDLE_STMT, database.handle(), SQL_HANDLE_DBC)) {
    std::vector<Value> given(values);
    std::vector<Parameter> parameters;
    parameters.reserve(given.size());
    for (Value& value : given) {
        Parameter& parameter = parameters.emplace_back(parameter_of(value));
        const auto place = static_cast<SQLUSMALLINT>(parameters.size());
        const auto length = static_cast<SQLULEN>(parameter.size > 0 ? parameter.size : 1);
        check(SQLBindParameter(statement_.get(), place, SQL_PARAM_INPUT, parameter.c_type,
                               parameter.sql_type, length, 0, parameter.data, 0, &parameter.size),
              SQL_HANDLE_STMT, statement_.get());
    }
    check(SQLExecDirectW(statement_.get(), text_of(text), SQL_NTS), SQL_HANDLE_STMT,
          statement_.get());
    SQLFreeStmt(statement_.get(), SQL_RESET_PARAMS);
    describe_columns();
}

void Statement::describe_columns() {
    SQLSMALLINT count = 0;
    check(SQLNumResultCols(statement_.get(), &count), SQL_HANDLE_STMT, statement_.get());
    for (SQLSMALLINT place = 1; place <= count; ++place) {
        std::array<wchar_t, 256> name{};
        SQLSMALLINT length = 0;
        SQLSMALLINT type = 0;
        check(SQLDescribeColW(statement_.get(), static_cast<SQLUSMALLINT>(place), name.data(),
                              static_cast<SQLSMALLINT>(name.size()), &length, &type, nullptr,
                              nullptr, nullptr),
              SQL_HANDLE_STMT, statement_.get());
        columns_.push_back({name.data(), type});
    }
}

bool Statement::next() {
    const SQLRETURN result = SQLFetch(statement_.get());
    check(result, SQL_HANDLE_STMT, statement_.get());
    return result != SQL_NO_DATA;
}

Value Statement::value(std::size_t column) const {
    const auto place = static_cast<SQLUSMALLINT>(column + 1);
    const auto number = [&](SQLSMALLINT type, auto& room) {
        SQLLEN length = 0;
        check(SQLGetData(statement_.get(), place, type, &room, sizeof room, &length),
              SQL_HANDLE_STMT, statement_.get());
        return length == SQL_NULL_DATA ? Value::null() : Value(room);
    };
    bool is_null = false;
    switch (columns_.at(column).type) {
        case SQL_BIT:
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER: {
            std::int32_t room = 0;
            return number(SQL_C_SLONG, room);
        }
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE: {
            double room = 0;
            return number(SQL_C_DOUBLE, room);
        }
        case SQL_BINARY:
        case SQL_VARBINARY:
        case SQL_LONGVARBINARY: {
            const std::string bytes = content(place, SQL_C_BINARY, is_null);
            return is_null ? Value::null() : bytes_value(bytes);
        }
        default: {
            const std::string text = content(place, SQL_C_WCHAR, is_null);
            return is_null ? Value::null() : Value(text_in(text));
        }
    }
}

std::string Statement::content(SQLUSMALLINT place, SQLSMALLINT type, bool& is_null) const {
    const std::size_t terminator = type == SQL_C_WCHAR ? sizeof(wchar_t) : 0;
    std::string all;
    while (true) {
        const std::size_t before = all.size();
        all.resize(before + chunk);
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(statement_.get(), place, type, all.data() + before,
                                            static_cast<SQLLEN>(chunk), &length);
        check(result, SQL_HANDLE_STMT, statement_.get());
        is_null = length == SQL_NULL_DATA;
        const bool is_last =
            result == SQL_NO_DATA || is_null ||
            (length != SQL_NO_TOTAL && static_cast<std::size_t>(length) <= chunk - terminator);
        if (!is_last) {
            all.resize(before + chunk - terminator);
            continue;
        }
        const bool has_rest = result != SQL_NO_DATA && !is_null;
        all.resize(before + (has_rest ? static_cast<std::size_t>(length) : 0));
        return all;
    }
}

std::int32_t Statement::rows_changed() const {
    SQLLEN count = 0;
    check(SQLRowCount(statement_.get(), &count), SQL_HANDLE_STMT, statement_.get());
    return static_cast<std::int32_t>(count);
}

}  // namespace ficha
