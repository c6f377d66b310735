#include "Platform/Foundation/FileContents.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "Tests/Support/TemporaryFolder.h"

namespace platform {
namespace {

TEST(FileContents, AreWhatIsThereWhateverWasExpected) {
    const test::TemporaryFolder folder;
    const std::string bytes(5000, 'b');
    const std::string path = folder.write("file", bytes);
    for (const std::size_t expected : {0, 1, 4999, 5000, 5001, 100000}) {
        SCOPED_TRACE(expected);
        const auto contents = contentsOfFile(FileDescriptor::open(path, O_RDONLY), expected);
        ASSERT_TRUE(contents);
        EXPECT_EQ(contents->view(), bytes);
    }
}

TEST(FileContents, OfAFileThatCannotBeReadAreNone) {
    const test::TemporaryFolder folder;
    const std::string path = folder.write("file", "bytes");
    errno = 0;
    EXPECT_FALSE(contentsOfFile(FileDescriptor::open(path, O_WRONLY), 5));
    EXPECT_EQ(errno, EBADF);
}

}  // namespace
}  // namespace platform
