#include "platform/windows/WindowsSystemInfo.h"

#include "platform/windows/WideText.h"

#include <iterator>
#include <wbemidl.h>
#include <windows.h>

namespace quorvane {
namespace {

/// @param info  with its size set, which tells the system the kind of record
/// @return false when the system refuses
template <typename Info>
bool AskVersion(Info& info, BasicVersion& version)
{
    if (!::GetVersionExA(reinterpret_cast<OSVERSIONINFOA*>(&info)))
        return false;
    version = {info.dwMajorVersion, info.dwMinorVersion, info.dwPlatformId,
               std::string(std::begin(info.szCSDVersion), std::end(info.szCSDVersion))};
    return true;
}

/// COM for a thread of its own that serves no window messages.
class ComUse {
public:
    ComUse() : result_(::CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
    ~ComUse()
    {
        if (Works())
            ::CoUninitialize();
    }
    ComUse(const ComUse&) = delete;
    ComUse& operator=(const ComUse&) = delete;

    [[nodiscard]] bool Works() const { return SUCCEEDED(result_); }

private:
    HRESULT result_;
};

/// Owns one reference to an object of COM.
template <typename Object>
class ComPointer {
public:
    ComPointer() = default;
    ~ComPointer()
    {
        if (object_ != nullptr)
            object_->Release();
    }
    ComPointer(const ComPointer&) = delete;
    ComPointer& operator=(const ComPointer&) = delete;

    [[nodiscard]] Object** Receive() { return &object_; } ///< once, for a function that gives an object
    [[nodiscard]] Object* Get() const { return object_; }
    Object* operator->() const { return object_; }

private:
    Object* object_ = nullptr;
};

/// A text as COM wants it.
class ComText {
public:
    explicit ComText(const wchar_t* text) : text_(::SysAllocString(text)) {}
    ~ComText() { ::SysFreeString(text_); }
    ComText(const ComText&) = delete;
    ComText& operator=(const ComText&) = delete;
    [[nodiscard]] BSTR Get() const { return text_; }

private:
    BSTR text_;
};

/// A property of an object that a query gave.
class Property {
public:
    Property(IWbemClassObject& object, const wchar_t* name)
    {
        ::VariantInit(&value_);
        if (FAILED(object.Get(name, 0, &value_, nullptr, nullptr)))
            ::VariantClear(&value_);
    }
    ~Property() { ::VariantClear(&value_); }
    Property(const Property&) = delete;
    Property& operator=(const Property&) = delete;

    [[nodiscard]] std::string Text() const
    {
        if (value_.vt != VT_BSTR || value_.bstrVal == nullptr)
            return {};
        return Utf8({value_.bstrVal, ::SysStringLen(value_.bstrVal)});
    }
    /// @return nothing when it has no value, or none that is a number
    [[nodiscard]] std::optional<double> Number()
    {
        if (value_.vt == VT_NULL || value_.vt == VT_EMPTY)
            return std::nullopt;
        VARIANT number;
        ::VariantInit(&number);
        if (FAILED(::VariantChangeType(&number, &value_, 0, VT_R8)))
            return std::nullopt;
        return number.dblVal;
    }

private:
    VARIANT value_;
};

/// Lets the management service act for this user through `proxy`. Told to each object, because the setting
/// for the whole process can be made once only, and belongs to nobody who shares the process with a toolkit.
bool AllowUse(IUnknown* proxy)
{
    return SUCCEEDED(::CoSetProxyBlanket(proxy, RPC_C_AUTHN_WINNT, RPC_C_AUTHZ_NONE, nullptr,
                                         RPC_C_AUTHN_LEVEL_CALL, RPC_C_IMP_LEVEL_IMPERSONATE, nullptr,
                                         EOAC_NONE));
}

/// Connects to the management service of this computer. @return false when it cannot be had
bool Connect(ComPointer<IWbemServices>& services)
{
    ComPointer<IWbemLocator> locator;
    if (FAILED(::CoCreateInstance(CLSID_WbemLocator, nullptr, CLSCTX_INPROC_SERVER, IID_IWbemLocator,
                                  reinterpret_cast<void**>(locator.Receive()))))
        return false;
    const ComText place(L"\\\\.\\root\\cimv2");
    return SUCCEEDED(locator->ConnectServer(place.Get(), nullptr, nullptr, nullptr,
                                            WBEM_FLAG_CONNECT_USE_MAX_WAIT, nullptr, nullptr,
                                            services.Receive())) &&
           AllowUse(services.Get());
}

ProcessorRecord RecordOf(IWbemClassObject& processor)
{
    return {
        .description = Property(processor, L"Description").Text(),
        .name = Property(processor, L"Name").Text(),
        .manufacturer = Property(processor, L"Manufacturer").Text(),
        .currentClockSpeed = Property(processor, L"CurrentClockSpeed").Number().value_or(0),
        .maxClockSpeed = Property(processor, L"MaxClockSpeed").Number().value_or(0),
        .l2CacheSize = Property(processor, L"L2CacheSize").Number(),
    };
}

std::vector<ProcessorRecord> QueryProcessors()
{
    std::vector<ProcessorRecord> records;
    const ComUse com;
    ComPointer<IWbemServices> services;
    if (!com.Works() || !Connect(services))
        return records;
    const ComText language(L"WQL");
    const ComText query(L"Select * From Win32_Processor");
    ComPointer<IEnumWbemClassObject> processors;
    if (FAILED(services->ExecQuery(language.Get(), query.Get(),
                                   WBEM_FLAG_FORWARD_ONLY | WBEM_FLAG_RETURN_IMMEDIATELY, nullptr,
                                   processors.Receive())))
        return records;
    AllowUse(processors.Get());
    constexpr long kPatienceMs = 60'000; // then the processors are unknown for good
    for (;;) {
        ComPointer<IWbemClassObject> processor;
        ULONG count = 0;
        if (processors->Next(kPatienceMs, 1, processor.Receive(), &count) != WBEM_S_NO_ERROR || count == 0)
            return records;
        records.push_back(RecordOf(*processor.Get()));
    }
}

} // namespace

std::optional<BasicVersion> WindowsSystemInfo::Version() const
{
    OSVERSIONINFOA info{};
    info.dwOSVersionInfoSize = sizeof info;
    BasicVersion version;
    return AskVersion(info, version) ? std::optional(version) : std::nullopt;
}

std::optional<ExtendedVersion> WindowsSystemInfo::VersionWithProduct() const
{
    OSVERSIONINFOEXA info{};
    info.dwOSVersionInfoSize = sizeof info;
    ExtendedVersion version;
    if (!AskVersion(info, version))
        return std::nullopt;
    version.productType = info.wProductType;
    return version;
}

void WindowsSystemInfo::AskForProcessors()
{
    processors_.Ask(QueryProcessors);
}

std::optional<std::vector<ProcessorRecord>> WindowsSystemInfo::TakeProcessors()
{
    return processors_.Take();
}

} // namespace quorvane
