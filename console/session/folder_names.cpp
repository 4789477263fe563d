#include "console/session/folder_names.h"

#include <filesystem>

std::vector<std::string> FilesLike(const std::string &Start)
{
    const size_t      nSlash = Start.rfind('/');
    const std::string Folder = nSlash == std::string::npos ? "" : Start.substr(0, nSlash + 1);
    std::vector<std::string> Names;
    std::error_code          Error;
    for (const auto &Entry :
         std::filesystem::directory_iterator(Folder.empty() ? "." : Folder, Error))
    {
        std::error_code   Ignored;
        const std::string Name = Folder + Entry.path().filename().string();
        if (Name.starts_with(Start) && (Name[Folder.size()] != '.' || Start.size() > Folder.size()))
            Names.push_back(Name + (Entry.is_directory(Ignored) ? "/" : ""));
    }
    return Names;
}
