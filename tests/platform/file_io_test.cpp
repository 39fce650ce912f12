#include "platform/file_io.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace zando {
namespace {

namespace fs = std::filesystem;

constexpr const char* kAttribute = "user.zando.test";
constexpr const char* kAccessList = "system.posix_acl_access";

/// An access list: what the owner, one user, the group, both of them at most, and others may do.
std::string AccessList(char named) {
  constexpr char kOwner = 1;
  constexpr char kUser = 2;
  constexpr char kGroup = 4;
  constexpr char kMask = 16;
  constexpr char kOthers = 32;
  const std::string nobody(4, '\xFF');
  const auto entry = [](char tag, char may, const std::string& id) {
    return std::string{tag, '\0', may, '\0'} + id;
  };
  return std::string("\x02\0\0\0", 4) + entry(kOwner, 6, nobody) +
         entry(kUser, named, std::string("\x39\x05\0\0", 4)) + entry(kGroup, 4, nobody) +
         entry(kMask, 6, nobody) + entry(kOthers, 0, nobody);
}

std::string Attribute(const fs::path& path, const char* name) {
  std::string value(1000, '\0');
  const ssize_t size = getxattr(path.c_str(), name, value.data(), value.size());
  return size < 0 ? "none" : value.substr(0, static_cast<std::size_t>(size));
}

bool SetAttribute(const fs::path& path, const char* name, const std::string& value) {
  return setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

std::string OwnerAndMode(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return std::to_string(status.st_uid) + ':' + std::to_string(status.st_gid) + ' ' +
         std::to_string(status.st_mode & 07777U);
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

class FileIo : public ::testing::Test {
 protected:
  FileIo() {
    fs::create_directory(folder_);
    EXPECT_EQ(WriteFileAtomically(path_, "old").Error(), "");
  }
  ~FileIo() override { fs::remove_all(folder_); }

  [[nodiscard]] std::string Names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_)) {
      names.insert(entry.path().filename());
    }
    return Joined({names.begin(), names.end()});
  }

  fs::path folder_ = fs::path(::testing::TempDir()) / ("zando_file_io_" + std::to_string(getpid()));
  fs::path path_ = folder_ / "file";
};

TEST_F(FileIo, AReplacedFileKeepsWhatItHasBesideItsBytes) {
  if (geteuid() == 0) {
    ASSERT_EQ(chown(path_.c_str(), 1234, 1235), 0);
  }
  fs::permissions(path_, fs::perms(0604));
  const bool attributes = SetAttribute(path_, kAttribute, std::string("a\0b", 3));
  const std::string plain = OwnerAndMode(path_);
  // A folder's list for new files is not theirs that come in the place of another.
  const bool lists = SetAttribute(folder_, "system.posix_acl_default", AccessList(4));
  for (const std::string text : {"new", ""}) {
    const auto written = WriteFileAtomically(path_, text);
    ASSERT_TRUE(written) << written.Error();
    EXPECT_EQ(Joined(written->Lines()), "");
    EXPECT_EQ(ReadWholeFile(path_).ValueOr("none"), text);
    EXPECT_EQ(OwnerAndMode(path_), plain);
    EXPECT_EQ(Attribute(path_, kAccessList), "none");
    EXPECT_EQ(Attribute(path_, kAttribute), attributes ? std::string("a\0b", 3) : "none");
  }
  if (!attributes || !lists) GTEST_SKIP() << "no attributes or access lists in " << folder_;
  ASSERT_TRUE(SetAttribute(path_, kAccessList, AccessList(6)));
  const std::string listed = OwnerAndMode(path_);
  EXPECT_TRUE(WriteFileAtomically(path_, "new"));
  EXPECT_EQ(Attribute(path_, kAccessList), AccessList(6));
  EXPECT_EQ(OwnerAndMode(path_), listed);
}

/// A system that allows nothing beside writing a file.
class CMeanSystem : public CFileCalls {
 public:
  int ChangeOwner(int /*file*/, uid_t /*owner*/, gid_t /*group*/) const override {
    errno = EPERM;
    return -1;
  }
  int SetAttribute(int /*file*/, const char* /*name*/, std::string_view /*value*/) const override {
    errno = ENOTSUP;
    return -1;
  }
  int Flush(int file) const override {
    struct stat status {};
    EXPECT_EQ(fstat(file, &status), 0);
    if (!S_ISDIR(status.st_mode)) return CFileCalls::Flush(file);
    errno = EINVAL;
    return -1;
  }
};

TEST_F(FileIo, TellsWhatOfAReplacedFileCouldNotBeKept) {
  std::string notes;
  fs::permissions(path_, fs::perms(0664));
  if (geteuid() == 0) {
    ASSERT_EQ(chown(path_.c_str(), 1234, 1235), 0);
    notes +=
        "its owner could not be kept: Operation not permitted\n"
        "its group could not be kept: Operation not permitted\n";
  }
  if (SetAttribute(path_, kAttribute, "a")) {
    notes += "its extended attribute user.zando.test could not be kept: Operation not supported\n";
  }
  notes +=
      "a power cut may still undo this, for its folder could not be flushed: Invalid argument\n";
  const auto written = WriteFileAtomically(path_, "new", CMeanSystem());
  ASSERT_TRUE(written) << written.Error();
  EXPECT_EQ(Joined(written->Lines()), notes);
  EXPECT_EQ(ReadWholeFile(path_).ValueOr("none"), "new");
  const auto mode = fs::status(path_).permissions();
  EXPECT_EQ(mode, fs::perms(geteuid() == 0 ? 0644 : 0664)) << "another group may write";
}

/// A system that takes a few bytes at a time, and then none.
class CFullSystem : public CFileCalls {
 public:
  ssize_t Write(int file, std::string_view bytes) const override {
    return CFileCalls::Write(file, bytes.substr(0, bytes.size() > 4 ? 3 : 0));
  }
};

TEST_F(FileIo, AWriteThatWritesNothingEndsTheSave) {
  EXPECT_EQ(WriteFileAtomically(path_, "0123456789", CFullSystem()).Error(), "Input/output error");
  EXPECT_EQ(ReadWholeFile(path_).ValueOr("none"), "old");
  EXPECT_EQ(Names(), "file\n");
}

TEST_F(FileIo, ASaveRemovesTheTemporaryFilesOfSavesThatWereCutOff) {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  ASSERT_EQ(waitpid(child, nullptr, 0), child);
  const std::string dead = ".zando-" + std::to_string(child) + '-';
  const std::string running = ".zando-" + std::to_string(getpid()) + "-0.tmp";
  std::set<std::string> names{
      "file",  ".zando-0-0.tmp",    ".zando-1-0.tmp", dead + "x.tmp", dead + "0.tmp.bak",
      running, "x" + dead + "0.tmp"};
  for (const std::string& name : names) EXPECT_TRUE(WriteFileAtomically(folder_ / name, "kept"));
  fs::create_directory(folder_ / (dead + "3.tmp"));
  fs::create_symlink("file", folder_ / (dead + "4.tmp"));
  names.insert({dead + "3.tmp", dead + "4.tmp"});
  if (geteuid() == 0) {
    ASSERT_TRUE(WriteFileAtomically(folder_ / "theirs", "kept"));
    ASSERT_EQ(chown((folder_ / "theirs").c_str(), 1234, 1235), 0);
    fs::rename(folder_ / "theirs", folder_ / (dead + "5.tmp"));
    names.insert(dead + "5.tmp");
  }
  for (const std::string number : {"0", "17"}) {
    fs::copy_file(path_, folder_ / (dead + number + ".tmp"));
  }
  EXPECT_TRUE(WriteFileAtomically(path_, "new"));
  EXPECT_EQ(Names(), Joined({names.begin(), names.end()}));
}

}  // namespace
}  // namespace zando
