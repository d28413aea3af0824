// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{

std::vector<std::filesystem::path> FilesBelow(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// The buffer has exactly the size of the file, so that a sanitizer sees each step beyond it.
std::vector<std::uint8_t> ReadAll(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    std::vector<std::uint8_t> bytes(std::filesystem::file_size(file));
    const auto size = static_cast<std::streamsize>(bytes.size());
    if (!stream.read(reinterpret_cast<char*>(bytes.data()), size)) {
        throw std::runtime_error("cannot read " + file.string());
    }
    return bytes;
}

void Replay(const std::filesystem::path& file)
{
    // Printed before the run: a crash leaves the name of its input as the last line.
    std::printf("%s\n", file.c_str());
    std::fflush(stdout);
    const std::vector<std::uint8_t> bytes = ReadAll(file);
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s CORPUS_FOLDER\n", argv[0]);
        return 2;
    }
    const std::vector<std::filesystem::path> files = FilesBelow(argv[1]);
    if (files.empty()) {
        std::fprintf(stderr, "%s: the corpus has no files\n", argv[1]);
        return 1;
    }
    std::for_each(files.begin(), files.end(), Replay);
    std::printf("%zu inputs replayed\n", files.size());
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
