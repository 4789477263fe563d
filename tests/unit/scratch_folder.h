// scratch_folder.h - a folder of its own for a test that writes files.
//
//     cScratchFolder Folder;
//     Folder.Write("old.txt", "01 PI\r\n");
//     CHECK(LoadProgram(Folder.Name("old.txt").c_str()) == 1);

#ifndef TESTS_UNIT_SCRATCH_FOLDER_H
#define TESTS_UNIT_SCRATCH_FOLDER_H

#include <cstdio>
#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>

#include <doctest/doctest.h>

// What ends a line of a text file here.
#ifdef _WIN32
inline const std::string kLineEnd = "\r\n";
#else
inline const std::string kLineEnd = "\n";
#endif

// Made under the current directory, under a name that no other test uses at
// the same time; removed with all that lies in it.
class cScratchFolder
{
public:
    cScratchFolder()
    {
        for (int i = 0; m_Folder.empty() && i < 10000; i++)
        {
            // Another test may make or remove the same folder at this moment;
            // whatever came of it, the next name is as good.
            std::error_code   Ignored;
            const std::string Folder = "scratch-" + std::to_string(i);
            if (std::filesystem::create_directory(Folder, Ignored))
                m_Folder = Folder;
        }
        REQUIRE_FALSE(m_Folder.empty());
    }

    ~cScratchFolder()
    {
        std::error_code Error;
        std::filesystem::remove_all(m_Folder, Error);
        WARN_FALSE(Error);
    }

    cScratchFolder(const cScratchFolder &)            = delete;
    cScratchFolder &operator=(const cScratchFolder &) = delete;

    // "scratch-0/old.txt" for "old.txt", relative to the current directory.
    std::string Name(const std::string &File) const { return m_Folder + "/" + File; }

    // Writes a file byte by byte, or replaces it.
    void Write(const std::string &File, const std::string &Content) const
    {
        FILE *const pFile = fopen(Name(File).c_str(), "wb");
        REQUIRE(pFile);
        const size_t nWritten = fwrite(Content.data(), 1, Content.size(), pFile);
        const int    nClosed  = fclose(pFile);
        REQUIRE(nWritten == Content.size());
        REQUIRE(nClosed == 0);
    }

    // All bytes of a file, which must exist.
    std::string Read(const std::string &File) const
    {
        FILE *const pFile = fopen(Name(File).c_str(), "rb");
        REQUIRE(pFile);
        std::string Content;
        char        Block[4096];
        for (size_t nRead; (nRead = fread(Block, 1, sizeof Block, pFile)) > 0;)
            Content.append(Block, nRead);
        const int nFailed = ferror(pFile);
        fclose(pFile);
        REQUIRE(nFailed == 0);
        return Content;
    }

    int Has(const std::string &File) const
    {
        FILE *const pFile = fopen(Name(File).c_str(), "rb");
        if (pFile)
            fclose(pFile);
        return pFile != nullptr;
    }

    // How many files, folders and links lie in it.
    size_t Count() const
    {
        std::error_code Error;
        const auto      nCount = std::distance(std::filesystem::directory_iterator(m_Folder, Error),
                                               std::filesystem::directory_iterator());
        REQUIRE_FALSE(Error);
        return static_cast<size_t>(nCount);
    }

private:
    std::string m_Folder;
};

#endif
