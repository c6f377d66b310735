#include "Platform/Foundation/ErrnoError.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace platform {
namespace {

TEST(ErrnoError, EachErrnoHasACodeForReadingAndOneForWriting) {
    struct Row {
        const char* name;
        int errnoValue;
        std::int64_t reading;
        std::int64_t writing;
    };
    constexpr Row kRows[] = {
        {"no such file", ENOENT, 260, 4},    {"no access", EACCES, 257, 513},
        {"not permitted", EPERM, 257, 513},  {"name too long", ENAMETOOLONG, 258, 514},
        {"too large", EFBIG, 263, 512},      {"exists", EEXIST, 256, 516},
        {"disk full", ENOSPC, 256, 640},     {"quota used up", EDQUOT, 256, 640},
        {"read-only disk", EROFS, 256, 642}, {"anything else", EIO, 256, 512},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(cocoaErrorForErrno(row.errnoValue, FileAccess::Reading, "p").code, row.reading);
        EXPECT_EQ(cocoaErrorForErrno(row.errnoValue, FileAccess::Writing, "p").code, row.writing);
    }
}

TEST(ErrnoError, DescriptionNamesThePathAndTheCause) {
    const Error error = cocoaErrorForErrno(ENOENT, FileAccess::Reading, "/a/b");
    EXPECT_EQ(error.domain, "NSCocoaErrorDomain");
    EXPECT_EQ(error.description, "/a/b: No such file or directory");
}

TEST(ErrnoError, SystemErrorKeepsTheNumber) {
    const Error error = posixErrorForErrno(EIO);
    EXPECT_EQ(error.domain, "NSPOSIXErrorDomain");
    EXPECT_EQ(error.code, EIO);
    EXPECT_EQ(error.description, "Input/output error");
}

}  // namespace
}  // namespace platform
