// Files held in memory for the targets that read a file in pieces: each read hands out at most a
// given number of bytes, as a read of a network share or of a file being appended to may. Only
// reading in pieces is offered.
#pragma once

#include "fuzz_station.h"
#include "platform/files.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace zandolt::fuzz {

class PieceReader : public FileReader
{
public:
    PieceReader(std::string_view text, std::size_t piece) : text_(text), piece_(piece) {}
    std::int64_t read(char* buffer, std::size_t size) override
    {
        const std::size_t n = std::min({size, piece_, text_.size()});
        std::memcpy(buffer, text_.data(), n);
        text_.remove_prefix(n);
        return static_cast<std::int64_t>(n);
    }

private:
    std::string_view text_;
    std::size_t piece_;
};

class MemoryFile : public Files
{
public:
    std::string_view text;
    std::size_t piece = 1;

    FileResult openRead(const std::string&, std::unique_ptr<FileReader>& reader) override
    {
        reader = std::make_unique<PieceReader>(text, piece);
        return FileResult::Ok;
    }

    std::string resolve(const std::string& p) override { return p; }
    bool exists(const std::string&) override { return true; }
    bool isDirectory(const std::string&) override { return false; }
    std::string modTimeText(const std::string&) override { return "1"; }
    std::int64_t size(const std::string&) override { return static_cast<std::int64_t>(text.size()); }
    FileResult readAll(const std::string&, std::string&) override { unused(); }
    FileResult append(const std::string&, const std::string&) override { unused(); }
    FileResult replace(const std::string&, const std::string&) override { unused(); }
    std::vector<DirEntry> list(const std::string&) override { unused(); }
    bool copy(const std::string&, const std::string&) override { unused(); }
    bool rename(const std::string&, const std::string&) override { unused(); }
    bool remove(const std::string&) override { unused(); }
    bool makeDirectory(const std::string&) override { unused(); }
    std::string currentDirectory() override { return "/"; }

private:
    [[noreturn]] static void unused() { PropertyFailed("a file operation that the target does not offer"); }
};

} // namespace zandolt::fuzz
