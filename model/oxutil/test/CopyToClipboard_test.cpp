#include "model/oxutil/CopyToClipboard.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>

namespace Orlix {
namespace {

// A PATH with these programs alone, shell scripts that find cat and sleep and the folder in $here.
class Desktop {
 public:
  explicit Desktop(const std::map<std::string, std::string>& programs)
      : path_(std::getenv("PATH")) {
    std::filesystem::create_directories(folder_);
    for (const auto& [name, script] : programs) {
      std::ofstream(folder_ / name)
          << "#!/bin/sh\nPATH=/usr/bin:/bin\nhere='" << folder_.string() << "'\n"
          << script << '\n';
      std::filesystem::permissions(folder_ / name, std::filesystem::perms::owner_all);
    }
    setenv("PATH", folder_.c_str(), 1);
  }
  ~Desktop() {
    setenv("PATH", path_.c_str(), 1);
    std::filesystem::remove_all(folder_);
  }
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  std::string Taken() const {
    std::ifstream file(folder_ / "taken", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::string path_;
  std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("velmo clipboard " + std::to_string(getpid()));
};

TEST(CopyToClipboard, TheFirstProgramThatTakesTheTextHasIt) {
  const std::string take = "cat > \"$here/taken\"";
  const std::string large(1 << 20, 'x');  // more than any buffer between the two
  const struct {
    const char* what;
    std::map<std::string, std::string> programs;
    std::string text;
    bool done;
    std::string taken;
  } kCases[] = {
      {"none", {}, "text", false, ""},
      {"text with every kind of byte",
       {{"xclip", take}},
       std::string("a\tμ\0\r\n", 7),
       true,
       std::string("a\tμ\0\r\n", 7)},
      {"empty", {{"xsel", take}}, "", true, ""},
      {"much", {{"wl-copy", take}}, large, true, large},
      {"the first fails", {{"wl-copy", "cat >/dev/null; exit 1"}, {"xsel", take}}, "b", true, "b"},
      {"ends without reading, which must raise no signal", {{"xclip", "exit 0"}}, large, false, ""},
      {"neither reads nor ends", {{"xclip", "exec sleep 60"}}, large, false, ""},
      {"reads but does not end", {{"xclip", take + "; exec sleep 60"}}, "c", false, "c"},
      {"leaves one behind that holds on to everything",
       {{"xclip", take + "; sleep 5 &"}},
       "d",
       true,
       "d"},
      {"no program", {{"xclip", ""}, {"xsel", "exit 3"}}, large, false, ""},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    const Desktop desktop(c.programs);
    EXPECT_EQ(CopyToClipboard(c.text, std::chrono::milliseconds(1500)), c.done);
    EXPECT_EQ(desktop.Taken(), c.taken);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);  // no child is left to collect
    EXPECT_EQ(errno, ECHILD);
  }
}

}  // namespace
}  // namespace Orlix
