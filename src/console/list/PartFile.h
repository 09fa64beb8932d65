// A file that gets its name only when it is complete: it is written to NAME.part beside it, and moved over
// NAME at the end. Until then an existing file with this name is not touched.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace Console {

class PartFile {
public:
    // Creates NAME.part; name is a full path. In text mode line feeds become CR LF. Messages name the file as
    // a list, or as another kind of file. Throws Error if it cannot be created.
    PartFile(const std::wstring& name, bool text, const std::wstring& kind = L"list");
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    // Deletes NAME.part unless it was moved.
    ~PartFile();

    // The open file, until Commit.
    std::FILE* Stream() const { return file_.get(); }

    // Closes the file and moves it over NAME. Throws Error if that fails, and Cancelled if the program was
    // interrupted before.
    void Commit();

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    const std::wstring name_;
    const std::wstring title_;
    const std::wstring partName_;
    std::unique_ptr<std::FILE, Close> file_;
    bool moved_ = false;
};

}  // namespace Console
