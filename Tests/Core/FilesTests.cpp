#include "Core/Files.h"
#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"
#include "Support/TextFile.h"

#include <cerrno>
#include <chrono>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

namespace ambrel {
namespace {

namespace fs = std::filesystem;

int codeOf(const std::optional<FileFailure>& failure) {
    return failure ? failure->code : 0;
}

int codeOf(const std::variant<std::string, FileFailure>& content) {
    const auto* const failure = std::get_if<FileFailure>(&content);
    return failure ? failure->code : 0;
}

class FilesTest : public ::testing::Test {
protected:
    TemporaryFolder folder;
    fs::path file = folder.path() / "file";

    [[nodiscard]] bool nothingElseIsLeft() const { return countFiles(folder.path(), ".") == 0; }
};

TEST_F(FilesTest, ReadsRegularFilesUpToTheLimit) {
    writeText(file, "12345678");
    EXPECT_EQ(std::get<std::string>(readFile(file, 8)), "12345678");
    EXPECT_EQ(codeOf(readFile(file, 7)), EFBIG);
    EXPECT_EQ(std::get<std::string>(readFileTail(file, 3)), "678");
    EXPECT_EQ(std::get<std::string>(readFileTail(file, 9)), "12345678");
}

TEST_F(FilesTest, ReadsNothingElse) {
    fs::create_directory(folder.path() / "folder");
    fs::create_symlink("loop", folder.path() / "loop");
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    const std::pair<const char*, int> cases[] = {
        {"missing", ENOENT}, {"folder", EISDIR}, {"loop", ELOOP}, {"pipe", EINVAL}, {"/dev/zero", EINVAL}};
    for (const auto& [name, code] : cases) {
        EXPECT_EQ(codeOf(readFile(folder.path() / name, 100)), code) << name;
        EXPECT_EQ(codeOf(readFileTail(folder.path() / name, 100)), code) << name;
    }
}

TEST_F(FilesTest, ReplacesAFileWholeAndForItsOwnerOnly) {
    writeText(file, "a longer text from before");
    writeText(folder.path() / ".file.new", "left behind by a crash, longer still, and open to all");
    fs::permissions(folder.path() / ".file.new", fs::perms::all);
    EXPECT_EQ(codeOf(replaceFile(file, "new")), 0);
    EXPECT_EQ(textOf(file), "new");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(nothingElseIsLeft());
}

TEST_F(FilesTest, FollowsLinksAlsoToNothing) {
    fs::create_directory(folder.path() / "elsewhere");
    fs::create_symlink("elsewhere/second", file);
    fs::create_symlink(folder.path() / "elsewhere/target", folder.path() / "elsewhere/second");
    for (const auto* text : {"into nothing", "into a file"}) {
        EXPECT_EQ(codeOf(replaceFile(file, text)), 0);
        EXPECT_TRUE(fs::is_symlink(file));
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(folder.path() / "elsewhere/target")));
        EXPECT_EQ(textOf(file), text);
    }
}

TEST_F(FilesTest, LeavesAloneWhatIsNoFile) {
    fs::create_symlink("/dev/full", folder.path() / "device");
    fs::create_symlink("loop", folder.path() / "loop");
    fs::create_symlink("gone/file", folder.path() / "dangling");
    fs::create_directory(folder.path() / "folder");
    ASSERT_EQ(::mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    const std::pair<const char*, int> cases[] = {{"device", EINVAL}, {"loop", ELOOP},  {"dangling", ENOENT},
                                                 {"folder", EISDIR}, {"pipe", EINVAL}, {"gone/file", ENOENT},
                                                 {"pipe/x", ENOTDIR}};
    for (const auto& [name, code] : cases) {
        const auto before = fs::symlink_status(folder.path() / name).type();
        EXPECT_EQ(codeOf(replaceFile(folder.path() / name, "text")), code) << name;
        EXPECT_EQ(fs::symlink_status(folder.path() / name).type(), before) << name;
    }
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_TRUE(nothingElseIsLeft());
}

TEST_F(FilesTest, AFullDiskLeavesTheOldFile) {
    writeText(file, "old");
    ChildProcess child([this] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{1000, 1000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return codeOf(replaceFile(file, std::string(5000, 'x')));
    });
    EXPECT_EQ(child.collect(), EFBIG);
    EXPECT_EQ(textOf(file), "old");
    EXPECT_TRUE(nothingElseIsLeft());
}

/// Two texts of several pages, so that a half-written one would show.
const std::string& saved(bool other) {
    static const std::string texts[] = {std::string(30'000, 'a') + "!", std::string(70'000, 'b') + "!"};
    return texts[other ? 1 : 0];
}

int saveForever(const fs::path& file) {
    for (bool other = false;; other = !other) {
        if (replaceFile(file, saved(other))) {
            return 1;
        }
    }
}

bool isWhole(const std::string& text) {
    return text == saved(false) || text == saved(true);
}

TEST_F(FilesTest, AKillAtAnyPointLeavesTheOldOrTheNewFile) {
    std::minstd_rand random(7); // NOLINT: the same points each time are fine
    ASSERT_EQ(codeOf(replaceFile(file, saved(false))), 0);
    for (int round = 0; round < 100; ++round) {
        ChildProcess child([this] { return saveForever(file); });
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 5000));
        child.kill();
        ASSERT_TRUE(isWhole(textOf(file))) << "round " << round;
    }
    EXPECT_LE(countFiles(folder.path(), "."), 1) << "crashes don't pile up files";
    EXPECT_EQ(codeOf(replaceFile(file, "last")), 0);
    EXPECT_TRUE(nothingElseIsLeft());
}

TEST_F(FilesTest, CopiesThatSaveAtTheSameTimeTakeTurns) {
    ASSERT_EQ(codeOf(replaceFile(file, saved(false))), 0);
    ChildProcess first([this] { return saveForever(file); });
    ChildProcess second([this] { return saveForever(file); });
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(1);
    while (std::chrono::steady_clock::now() < end) {
        ASSERT_TRUE(isWhole(textOf(file)));
    }
    EXPECT_EQ(first.kill(), -SIGKILL) << "no save failed until then";
    EXPECT_EQ(second.kill(), -SIGKILL);
}

TEST_F(FilesTest, MakesFoldersForTheirOwnerOnly) {
    const auto deep = folder.path() / "a/b/c";
    EXPECT_EQ(codeOf(createFolder(deep)), 0);
    EXPECT_EQ(codeOf(createFolder(deep)), 0) << "it may exist";
    for (const auto& made : {deep, deep.parent_path(), deep.parent_path().parent_path()}) {
        EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_all) << made;
    }
    writeText(file, "in the way");
    EXPECT_EQ(codeOf(createFolder(file)), EEXIST);
    EXPECT_EQ(codeOf(createFolder(file / "under")), ENOTDIR);
}

} // namespace
} // namespace ambrel
