#include "Benchmarks/Support/Floor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

#include <bit>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <vector>

namespace bench {
namespace {

[[noreturn]] void giveUp(const char* why) {
    std::fprintf(stderr, "floor: %s\n", why);
    std::abort();
}

FloorMember fileAt(const char* path) {
    const int file = ::open(path, O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (file < 0 || ::fstat(file, &status) != 0) {
        giveUp("the file cannot be opened");
    }
    FloorMember whole;
    whole.size = static_cast<std::size_t>(status.st_size);
    whole.bytes = std::make_unique_for_overwrite<char[]>(whole.size);
    if (::read(file, whole.bytes.get(), whole.size) != status.st_size) {
        giveUp("the file cannot be read");
    }
    ::close(file);
    return whole;
}

template <class Integer>
Integer littleEndianAt(const char* bytes) {
    Integer value;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

/// One stream of zlib for members, one after the other.
class Inflater {
public:
    Inflater() {
        if (inflateInit2(&stream_, -15) != Z_OK) {
            giveUp("no stream of zlib");
        }
    }
    ~Inflater() { inflateEnd(&stream_); }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;

    void inflateInto(std::span<char> output, std::string_view compressed) {
        inflateReset(&stream_);
        stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(compressed.data()));
        stream_.avail_in = static_cast<uInt>(compressed.size());
        stream_.next_out = reinterpret_cast<Bytef*>(output.data());
        stream_.avail_out = static_cast<uInt>(output.size());
        if (inflate(&stream_, Z_FINISH) != Z_STREAM_END) {
            giveUp("a member cannot be inflated");
        }
    }

private:
    z_stream stream_{};
};

/// Calls `receive(name, compressed, size)` for each member of an archive.
template <class Receive>
void forEachMember(std::string_view archive, Receive receive) {
    static_assert(std::endian::native == std::endian::little);
    const char* const end = archive.data() + archive.size() - 22;
    const char* record = archive.data() + littleEndianAt<std::uint32_t>(end + 16);
    for (unsigned i = littleEndianAt<std::uint16_t>(end + 10); i > 0; --i) {
        const std::string_view name(record + 46, littleEndianAt<std::uint16_t>(record + 28));
        const char* const local = archive.data() + littleEndianAt<std::uint32_t>(record + 42);
        const char* const data = local + 30 + littleEndianAt<std::uint16_t>(local + 26) +
                                 littleEndianAt<std::uint16_t>(local + 28);
        receive(name, std::string_view(data, littleEndianAt<std::uint32_t>(record + 20)),
                littleEndianAt<std::uint32_t>(record + 24));
        record += 46 + name.size() + littleEndianAt<std::uint16_t>(record + 30) +
                  littleEndianAt<std::uint16_t>(record + 32);
    }
}

/// A binary property list whose frame is taken as it comes.
class List {
public:
    explicit List(std::string_view bytes) : bytes_(bytes) {
        const char* const trailer = bytes.data() + bytes.size() - 32;
        offsetSize_ = static_cast<unsigned char>(trailer[6]);
        referenceSize_ = static_cast<unsigned char>(trailer[7]);
        top_ = numberAt(trailer + 16, 8);
        table_ = numberAt(trailer + 24, 8);
    }

    struct Item {
        unsigned kind;
        std::uint64_t count;
        const char* content;
    };

    std::uint64_t top() const { return top_; }

    Item itemAt(std::uint64_t number) const {
        const char* const table = bytes_.data() + table_;
        const char* at = bytes_.data() + numberAt(table + number * offsetSize_, offsetSize_);
        const unsigned marker = static_cast<unsigned char>(*at);
        Item item{marker >> 4, marker & 0xF, at + 1};
        if (item.count == 0xF) {
            const std::uint64_t width = std::uint64_t{1} << (item.content[0] & 0xF);
            item.count = numberAt(item.content + 1, width);
            item.content += 1 + width;
        }
        return item;
    }

    std::uint64_t elementOf(const Item& item, std::uint64_t position) const {
        return numberAt(item.content + position * referenceSize_, referenceSize_);
    }

    /// The value under `key`.
    Item valueOf(const Item& dictionary, std::string_view key) const {
        for (std::uint64_t i = 0; i < dictionary.count; ++i) {
            const Item name = itemAt(elementOf(dictionary, i));
            if (std::string_view(name.content, name.count) == key) {
                return itemAt(elementOf(dictionary, dictionary.count + i));
            }
        }
        giveUp("a key is missing");
    }

    /// The number that an archive's reference holds.
    static std::uint64_t referenceIn(const Item& uid) {
        return numberAt(uid.content, uid.count + 1);
    }

private:
    static std::uint64_t numberAt(const char* bytes, std::uint64_t width) {
        std::uint64_t number = 0;
        for (std::uint64_t i = 0; i < width; ++i) {
            number = number << 8 | static_cast<unsigned char>(bytes[i]);
        }
        return number;
    }

    std::string_view bytes_;
    std::uint64_t offsetSize_;
    std::uint64_t referenceSize_;
    std::uint64_t top_;
    std::uint64_t table_;
};

std::u16string textOf(const List::Item& string) {
    constexpr unsigned kAscii = 5;
    if (string.kind == kAscii) {
        return {string.content, string.content + string.count};
    }
    std::u16string text(string.count, u'\0');
    std::memcpy(text.data(), string.content, 2 * string.count);
    for (char16_t& unit : text) {
        unit = static_cast<char16_t>(unit << 8 | unit >> 8);
    }
    return text;
}

}  // namespace

FloorPackage floorPackage(const char* path) {
    const FloorMember file = fileAt(path);
    FloorPackage package;
    Inflater inflater;
    forEachMember(file.view(),
                  [&](std::string_view name, std::string_view compressed, std::uint32_t size) {
                      FloorMember& member = name == "text.plist" ? package.text : package.contents;
                      member.size = size;
                      member.bytes = std::make_unique_for_overwrite<char[]>(size);
                      inflater.inflateInto({member.bytes.get(), size}, compressed);
                  });
    return package;
}

std::uint64_t floorInflate(const char* path) {
    const FloorMember file = fileAt(path);
    std::vector<char> contents;
    std::uint64_t sum = 0;
    Inflater inflater;
    forEachMember(file.view(),
                  [&](std::string_view, std::string_view compressed, std::uint32_t size) {
                      contents.resize(size);
                      inflater.inflateInto(contents, compressed);
                      sum += size;
                  });
    return sum;
}

std::u16string floorString(std::string_view archive) {
    const List list(archive);
    const List::Item archiveTop = list.itemAt(list.top());
    const List::Item objects = list.valueOf(archiveTop, "$objects");
    const auto objectNamedBy = [&](const List::Item& uid) {
        return list.itemAt(list.elementOf(objects, List::referenceIn(uid)));
    };
    const List::Item root = objectNamedBy(list.valueOf(list.valueOf(archiveTop, "$top"), "root"));
    return textOf(objectNamedBy(list.valueOf(root, "NSString")));
}

}  // namespace bench
