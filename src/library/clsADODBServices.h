// Images and files in the binary fields of a recordset.
#pragma once

#include <windows.h>

#include <cstdint>
#include <ocidl.h>
#include <string>

#include "automation/class_info.h"
#include "automation/com_ptr.h"
#include "automation/variant.h"
#include "library/app_origin.h"

namespace kovrel {

class clsADODBServices : public AppOrigen {
 public:
    static const ClassInfo class_info;

    void PutImageInField(const ComPtr<IDispatch>& f, const std::wstring& File);
    ComPtr<IPictureDisp> GetImageFromField(const ComPtr<IDispatch>& f);
    void PutLargeImageInField(const ComPtr<IDispatch>& f, const std::wstring& File);
    ComPtr<IPictureDisp> GetLargeImageFromField(const ComPtr<IDispatch>& f);
    Variant RecordLocation(const ComPtr<IDispatch>& adoRs, const std::wstring& Title);
    void PutPictureInField(const ComPtr<IDispatch>& f, const ComPtr<IPictureDisp>& pic);
};

}  // namespace kovrel
