#include "console/list/PartFile.h"

#include <share.h>

#include "console/Errors.h"
#include "console/FullPath.h"
#include "console/Interrupt.h"
#include "winlib/Windows.h"

namespace Console {

// Two programs that write the same list must not write into each other's file.
PartFile::PartFile(const std::wstring& name, bool text, const std::wstring& kind)
    : name_(name),
      title_(L"the " + kind + L" '" + name + L"'"),
      partName_(name + L".part"),
      file_(_wfsopen(LongPath(partName_).c_str(), text ? L"w" : L"wb", _SH_DENYWR)) {
    if (file_ == nullptr)
        throw Error(
            ExitCode::NotWritten,
            title_ + L" cannot be created; check that its folder exists and may be written to, and that '" +
                partName_ + L"' is not in use");
}

PartFile::~PartFile() {
    if (file_ == nullptr && moved_)
        return;
    file_.reset();
    DeleteFileW(LongPath(partName_).c_str());
}

void PartFile::Commit() {
    if (std::fclose(file_.release()) != 0)
        throw Error(ExitCode::NotWritten, title_ + L" could not be written; check the free space");
    ThrowIfInterrupted();
    moved_ =
        MoveFileExW(LongPath(partName_).c_str(), LongPath(name_).c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
    if (!moved_)
        throw Error(ExitCode::NotWritten,
                    title_ + L" cannot be replaced; check that it is not open or read-only");
}

}  // namespace Console
