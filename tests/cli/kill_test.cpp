#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <random>
#include <sstream>
#include <thread>

#include "jet/journal.h"
#include "tests/cli/command_run.h"

// The program is killed while it works. Whatever the moment, the meet is afterwards as before the command or
// as after it.
namespace tarvex::cli {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

// A program that runs beside this one.
class Child {
 public:
  explicit Child(std::vector<std::string> arguments) {
    std::string program = TARVEXCTL;
    std::vector<char*> words = {program.data()};
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    id_ = fork();
    if (id_ != 0) return;
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int stream : {0, 1, 2}) dup2(nowhere, stream);
    execv(TARVEXCTL, words.data());
    _exit(127);
  }
  ~Child() {
    if (id_ > 0) Kill();
  }

  bool IsRunning() {
    if (id_ > 0 && waitpid(id_, &status_, WNOHANG) == id_) id_ = 0;
    return id_ > 0;
  }
  void Kill() {
    if (!IsRunning()) return;
    kill(id_, SIGKILL);
    waitpid(id_, &status_, 0);
    id_ = 0;
  }
  int ExitCode() {
    if (id_ > 0) waitpid(id_, &status_, 0);
    id_ = 0;
    return WIFEXITED(status_) ? WEXITSTATUS(status_) : -1;
  }
  bool WasKilled() const { return WIFSIGNALED(status_); }

 private:
  pid_t id_ = 0;
  int status_ = 0;
};

// 2,000 athletes of 40 teams in 20 dashes.
std::string ManyEntries() {
  std::string csv =
      "event_no,event_sex,distance,kind,last_name,first_name,ath_sex,comp_no,team_abbr,seed_mark\n";
  for (int i = 0; i < 2000; ++i) {
    const std::string number = std::to_string(i + 1);
    csv += std::to_string(i % 20 + 1) + ",M,100,Dash,Last" + number + ",First,M," + number + ",T" +
           std::to_string(i % 40) + "," + std::to_string(10 + i % 7) + "." + std::to_string(10 + i % 89) +
           "\n";
  }
  return csv;
}

class Kill : public CommandTest {
 protected:
  void SetUp() override {
    ASSERT_EQ(Run({"create", meet_}).code, 0);
    File("entries.csv", ManyEntries());
  }

  // The rows that the commands write, without the identifiers, which are drawn and stand last in their rows.
  std::string State() const {
    std::string state = Run({"dump", meet_, "Entry"}).out + Run({"dump", meet_, "Event"}).out;
    std::istringstream athletes(Run({"dump", meet_, "Athlete"}).out);
    std::string line;
    std::getline(athletes, line);
    EXPECT_TRUE(line.ends_with("athGUID_strg"));
    while (std::getline(athletes, line)) state += line.substr(0, line.rfind('\t')) + "\n";
    return state;
  }
  std::string JournalPath() const { return jet::Journal::PathFor(meet_); }
  // Whether the meet was left in the middle of a transaction.
  bool IsInTransaction() const {
    char mark[8] = {};
    std::ifstream(JournalPath(), std::ios::binary).read(mark, sizeof mark);
    return std::string_view(mark, sizeof mark) == "TarvexJ1";
  }

  // When a kill falls: so long after the start, or after the moment from which the file differs from its old
  // state.
  struct Moment {
    bool from_transaction = false;
    Seconds delay{0};
  };
  void WaitForTransaction(Child& child) const {
    while (child.IsRunning() && !IsInTransaction()) std::this_thread::yield();
  }
  // Runs the command and kills it; whether it was still at work.
  bool RunAndKill(const std::vector<std::string>& command, Moment moment) {
    Child child(command);
    if (moment.from_transaction) WaitForTransaction(child);
    const auto end = Clock::now() + moment.delay;
    while (child.IsRunning() && Clock::now() < end) std::this_thread::yield();
    child.Kill();
    return child.WasKilled();
  }

  // Kills the command at many moments, each time from the state that the meet has now, and leaves it done.
  void KillOften(const std::vector<std::string>& command) {
    const std::string bytes = FileText(meet_);
    const std::string before = State();
    const auto start = Clock::now();
    Child undisturbed(command);
    WaitForTransaction(undisturbed);
    const auto transaction = Clock::now();
    ASSERT_EQ(undisturbed.ExitCode(), 0);
    const auto end = Clock::now();
    const std::string done = FileText(meet_);
    const std::string after = State();
    ASSERT_NE(before, after);

    std::mt19937 random(20240510);
    std::uniform_real_distribution<double> part(0, 1);
    const int kills = IsQuick() ? 8 : 40;
    int killed = 0, in_transaction = 0, as_before = 0, as_after = 0;
    const auto give_up = Clock::now() + std::chrono::seconds(7);
    for (int i = 0; i < kills && Clock::now() < give_up; ++i) {
      WriteFileText(meet_, bytes);
      std::filesystem::remove(JournalPath());
      const bool from_transaction = i % 2 == 1;
      const Seconds longest = from_transaction ? end - transaction : end - start;
      const Moment moment{from_transaction, longest * 1.1 * part(random)};
      killed += RunAndKill(command, moment);
      in_transaction += IsInTransaction();
      // The next command finds a meet in one of the two states; the structural check is one that does not
      // repair first.
      EXPECT_EQ(i % 4 < 2 ? ErrorsIn(meet_) : "", "") << "before the recovery, kill " << i;
      ASSERT_EQ(Run({"open", meet_}).code, 0) << "kill " << i;
      ASSERT_EQ(ErrorsIn(meet_), "") << "kill " << i;
      EXPECT_FALSE(IsInTransaction());
      const std::string state = State();
      as_before += state == before;
      as_after += state == after;
      ASSERT_EQ((state == before) + (state == after), 1) << "kill " << i << " left half a command";
    }
    RecordProperty(command[0] + "_killed", killed);
    RecordProperty(command[0] + "_in_transaction", in_transaction);
    RecordProperty(command[0] + "_as_after", as_after);
    killed_ += killed;
    in_transaction_ += in_transaction;
    as_before_ += as_before;
    as_after_ += as_after;
    WriteFileText(meet_, done);
  }

  const std::string meet_ = Path("meet.mdb");
  int killed_ = 0, in_transaction_ = 0, as_before_ = 0, as_after_ = 0;
};

TEST_F(Kill, LeavesTheMeetAsBeforeOrAfterTheCommand) {
  KillOften({"import", meet_, Path("entries.csv")});
  if (HasFatalFailure()) return;
  KillOften({"seed", meet_, "--all", "--draw-seed", "7"});
  if (HasFatalFailure()) return;
  // Everybody has a result; what is killed is the scoring of all of them.
  for (int event = 1; event <= 20; ++event) {
    std::string results = "comp_no,mark\n";
    for (int i = event - 1; i < 2000; i += 20)
      results +=
          std::to_string(i + 1) + "," + std::to_string(10 + i % 5) + "." + std::to_string(10 + i % 83) + "\n";
    ASSERT_EQ(Run({"results", meet_, std::to_string(event), "--enter", File("results.csv", results)}).code,
              0);
  }
  KillOften({"score", meet_, "--all"});
  // The kills must have fallen into the work, a good part of them into a transaction.
  EXPECT_GT(killed_, IsQuick() ? 2 : 10);
  EXPECT_GT(in_transaction_, IsQuick() ? 0 : 3);
  EXPECT_GT(as_before_, 0);
  EXPECT_GT(as_after_, 0);
}

}  // namespace
}  // namespace tarvex::cli
