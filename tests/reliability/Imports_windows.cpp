#include "Imports.h"

#include <cctype>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace reliability
{

namespace
{

// A part of the file and where it lies in memory.
struct Section
{
    std::uint32_t address;
    std::uint32_t size;
    std::uint32_t place;
};

class ImportReader
{
public:
    explicit ImportReader(const std::string& bytes) : bytes_(bytes)
    {
        constexpr std::size_t headerPlace = 0x3C;
        constexpr std::uint32_t portableExecutable = 0x4550;  // "PE"
        header_ = at<std::uint32_t>(headerPlace);
        if (at<std::uint32_t>(header_) != portableExecutable ||
            at<std::uint16_t>(header_ + fileHeader) != with64Bits)
            throw std::runtime_error("no 64-bit Windows program");
        const auto count = at<std::uint16_t>(header_ + 6);
        const std::size_t table = header_ + fileHeader + at<std::uint16_t>(header_ + 20);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t entry = table + i * 40;
            sections_.push_back({at<std::uint32_t>(entry + 12), at<std::uint32_t>(entry + 8),
                                 at<std::uint32_t>(entry + 20)});
        }
    }

    Imports imports() const
    {
        constexpr std::size_t importDirectory = 120;
        constexpr std::size_t entrySize = 20;
        Imports result;
        std::size_t entry = placeOf(at<std::uint32_t>(header_ + fileHeader + importDirectory));
        for (; at<std::uint32_t>(entry + 12) != 0; entry += entrySize) {
            std::string library = textAt(placeOf(at<std::uint32_t>(entry + 12)));
            for (char& c : library)
                c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            addFunctions(placeOf(at<std::uint32_t>(entry)), result[library]);
        }
        return result;
    }

private:
    static constexpr std::size_t fileHeader = 24;
    static constexpr std::uint16_t with64Bits = 0x20B;

    template <class Number>
    Number at(std::size_t place) const
    {
        Number number{};
        if (place + sizeof number > bytes_.size())
            throw std::runtime_error("the program's file is cut");
        std::memcpy(&number, bytes_.data() + place, sizeof number);
        return number;
    }

    std::string textAt(std::size_t place) const
    {
        return bytes_.substr(place, bytes_.find('\0', place) - place);
    }

    std::size_t placeOf(std::uint32_t address) const
    {
        for (const Section& section : sections_)
            if (address >= section.address && address < section.address + section.size)
                return section.place + (address - section.address);
        throw std::runtime_error("the program's file is cut");
    }

    void addFunctions(std::size_t table, std::set<std::string>& functions) const
    {
        constexpr std::uint64_t byNumber = std::uint64_t{1} << 63;
        for (; at<std::uint64_t>(table) != 0; table += sizeof byNumber)
            if ((at<std::uint64_t>(table) & byNumber) == 0)
                functions.insert(
                    textAt(placeOf(static_cast<std::uint32_t>(at<std::uint64_t>(table))) + 2));
    }

    const std::string& bytes_;
    std::size_t header_ = 0;
    std::vector<Section> sections_;
};

}  // namespace

Imports importsOf(const std::string& program)
{
    return ImportReader(program).imports();
}

}  // namespace reliability
