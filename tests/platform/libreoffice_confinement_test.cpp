#include "tests/platform/libreoffice_fixture.h"

#include "tests/support/child_process.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cctype>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>
#include <vector>

namespace quillora::deck::libreoffice {
namespace {

namespace fs = std::filesystem;
using tests::FlatDeck;
using namespace std::chrono_literals;

/// A server on a port of this machine that only counts who knocks.
class Listener {
  public:
    Listener()
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        ::bind(m_socket, reinterpret_cast<sockaddr*>(&address), length);
        ::listen(m_socket, 8);
        ::getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &length);
        m_port = ntohs(address.sin_port);
    }
    ~Listener() { ::close(m_socket); }
    int port() const { return m_port; }
    bool wasCalled() const
    {
        pollfd waited{m_socket, POLLIN, 0};
        return ::poll(&waited, 1, 0) > 0;
    }

  private:
    int m_socket = ::socket(AF_INET, SOCK_STREAM, 0);
    int m_port = 0;
};

/// Programs that stand in for the converter and misbehave: shell scripts that speak on its socket.
class MisbehavingConverterTest : public LibreOfficeConverterTest {
  protected:
    void useScript(const std::string& script, ConverterPatience patience = {2000ms, 0ms})
    {
        const fs::path program = m_programs.path() / "converter";
        tests::writeFile(program, "#!/bin/sh\n" + script);
        fs::permissions(program, fs::perms::owner_all);
        use({program, usualOfficeFolders(), patience, Confinement::programOnly});
    }
    void import() { LibreOfficeConverterTest::import(deckFile("deck.fodp", plainDeck("#ff0000"))); }

    tests::TemporaryFolder m_programs{tests::TemporaryFolder::Name::plain};
};

class ConfinedConverterTest : public LibreOfficeConverterTest,
                              public ::testing::WithParamInterface<Confinement> {};

TEST_P(ConfinedConverterTest, WhatADeckNamesIsNeitherShownNorFetched)
{
    m_setup.confinement = GetParam();
    use(m_setup);
    const Listener listener;
    const tests::TemporaryFolder secrets(tests::TemporaryFolder::Name::plain);
    const std::string secret = (secrets.path() / "secret.png").string();
    ASSERT_EQ(tests::runToEnd({"ffmpeg", "-loglevel", "quiet", "-f", "lavfi", "-i", "color=blue:s=64x64",
                               "-frames:v", "1", "-update", "1", secret}),
              0);
    FlatDeck deck(25.4, 19.05);
    deck.slide(deck.picture("file://" + secret, 2, 2, 8, 8))
        .slide(
            deck.picture("http://127.0.0.1:" + std::to_string(listener.port()) + "/picture.png", 2, 2, 8, 8))
        .slide(deck.picture(secret, 2, 2, 8, 8))
        .slide(deck.rectangle("#ff0000", 2, 2, 8, 8));
    EXPECT_EQ(import(deckFile("deck.fodp", deck.text())), 4);
    EXPECT_FALSE(listener.wasCalled());
    // What holds the picture's place may be drawn, the picture not.
    for (const int n : {1, 2, 3})
        EXPECT_TRUE(series(n).isNear(300, 300, 0xffffff))
            << "slide " << n << ": " << series(n).describe(300, 300);
    EXPECT_TRUE(series(4).isNear(300, 300, 0xff0000));
}

/// How many processes have @p text in their command line.
int processesWith(const std::string& text)
{
    int count = 0;
    std::error_code error;
    for (fs::directory_iterator entry("/proc", error), end; !error && entry != end; entry.increment(error)) {
        if (tests::readFile(entry->path() / "cmdline").find(text) != std::string::npos)
            ++count;
    }
    return count;
}

TEST_P(ConfinedConverterTest, NoProcessOutlivesARecorderThatIsKilled)
{
    // A copy, so that its processes can be told from others.
    const tests::TemporaryFolder programs(tests::TemporaryFolder::Name::plain);
    m_setup.program = programs.path() / "converter";
    m_setup.confinement = GetParam();
    fs::copy_file(QUILLORA_DECK_CONVERTER, m_setup.program);
    const pid_t recorder = ::fork();
    if (recorder == 0) {
        LibreOfficeConverter converter(m_setup);
        const std::unique_ptr<PresentationApplication> application = converter.createApplication();
        converter.prepare();
        ::kill(::getpid(), SIGKILL);
    }
    ASSERT_GT(recorder, 0);
    int status = 0;
    ASSERT_EQ(::waitpid(recorder, &status, 0), recorder);
    ASSERT_TRUE(WIFSIGNALED(status));
    for (int i = 0; i < 200 && processesWith(programs.path().string()) > 0; ++i)
        std::this_thread::sleep_for(50ms);
    EXPECT_EQ(processesWith(programs.path().string()), 0);
}

INSTANTIATE_TEST_SUITE_P(LibreOffice, ConfinedConverterTest,
                         ::testing::Values(Confinement::bubblewrap, Confinement::programOnly),
                         [](const auto& tested) {
                             return tested.param == Confinement::bubblewrap ? "InBubblewrap" : "ByItself";
                         });

TEST_F(LibreOfficeConverterTest, WithoutLibreOfficeThereIsNoApplication)
{
    use({QUILLORA_DECK_CONVERTER, {m_folder.path()}});
    m_converter->prepare();
    EXPECT_THROW(m_converter->createApplication(), std::runtime_error);
}

TEST_F(LibreOfficeConverterTest, WithoutTheProgramThereIsNoApplication)
{
    use({m_folder.path() / "missing", usualOfficeFolders()});
    EXPECT_THROW(m_converter->createApplication(), std::runtime_error);
}

TEST_F(LibreOfficeConverterTest, WhereBubblewrapIsForbiddenTheProgramConfinesItself)
{
    // Inside bubblewrap the job folder has a name of its own, by which the script tells.
    const fs::path program = m_folder.path() / "converter";
    tests::writeFile(program, std::string("#!/bin/sh\n[ \"$2\" = /job ] && exit 1\nexec '") +
                                  QUILLORA_DECK_CONVERTER + "' \"$@\"\n");
    fs::permissions(program, fs::perms::owner_all);
    use({program, usualOfficeFolders(), {}, Confinement::bubblewrap});
    EXPECT_EQ(import(deckFile("deck.fodp", plainDeck("#ff0000"))), 1);
}

TEST_F(MisbehavingConverterTest, OneThatHangsIsKilledWithItsDescendants)
{
    const fs::path id = m_programs.path() / "id";
    useScript("sleep 1000 & echo $! > '" + id.string() + "'\nprintf 'ready\\n' >&3\nwait\n");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_THROW(import(), std::runtime_error);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 30s);
    const pid_t descendant = std::atoi(tests::readFile(id).c_str());
    ASSERT_GT(descendant, 1);
    // It is not our child, so whoever adopts it takes it away, some time.
    for (int i = 0; i < 100 && ::kill(descendant, 0) == 0; ++i)
        std::this_thread::sleep_for(50ms);
    const std::string state = tests::readFile("/proc/" + std::to_string(descendant) + "/stat");
    EXPECT_TRUE(state.empty() || state.find(") Z ") != std::string::npos) << state;
}

/// Processes that run @p program; a script is run by its interpreter.
std::vector<pid_t> processesOf(const fs::path& program)
{
    std::vector<pid_t> found;
    std::error_code error;
    for (fs::directory_iterator entry("/proc", error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename();
        if (std::isdigit(static_cast<unsigned char>(name.front())) &&
            tests::readFile(entry->path() / "cmdline").starts_with(program.string()))
            found.push_back(std::atoi(name.c_str()));
    }
    return found;
}

TEST_F(LibreOfficeConverterTest, OneThatIsKilledFailsItsImportAndTheNextWorks)
{
    // A copy, so that its processes can be told from others.
    const tests::TemporaryFolder programs(tests::TemporaryFolder::Name::plain);
    m_setup.program = programs.path() / "converter";
    m_setup.confinement = Confinement::programOnly;
    fs::copy_file(QUILLORA_DECK_CONVERTER, m_setup.program);
    use(m_setup);
    const std::unique_ptr<Presentation> deck = open(deckFile("deck.fodp", plainDeck("#ff0000")));
    const std::vector<pid_t> processes = processesOf(m_setup.program);
    ASSERT_FALSE(processes.empty());
    for (const pid_t process : processes)
        ::kill(process, SIGKILL);
    EXPECT_THROW(deck->SaveAs(m_pictures, SaveAsFormat::png, EmbedTrueTypeFonts::yes), std::runtime_error);
    EXPECT_EQ(import(deckFile("next.fodp", plainDeck("#00ff00"))), 1);
}

TEST_F(MisbehavingConverterTest, WhateverItSaysTheImportFailsAndNothingElse)
{
    for (const char* script : {
             "exit 0",
             "printf 'garbage\\n' >&3; sleep 100",
             "yes | tr -d '\\n' >&3",
             "yes ready >&3",
             "printf 'opened 3\\n' >&3; sleep 100",
             "printf 'ready\\nopened 99999999\\n' >&3; sleep 100",
             "printf 'ready\\nopened 2\\nlaid-out 0 0\\n' >&3; sleep 100",
             "printf 'ready\\nopened 2\\npainted 1 0\\n' >&3; sleep 100",
             "printf 'ready\\nopened 2\\nlaid-out 72000 54000\\npainted 2 0\\n' >&3; sleep 100",
             "printf 'ready\\nopened 2\\nlaid-out 72000 54000\\npainted 1 3\\n' >&3; sleep 100",
             "printf 'ready\\nopened 2\\nlaid-out 72000 54000\\npainted 1 0\\npainted 1 0\\n' >&3; sleep 100",
             "printf 'ready\\nopened 2\\nlaid-out 72000 54000\\n' >&3",
         }) {
        useScript(script);
        EXPECT_THROW(import(), std::runtime_error) << script;
    }
    for (const std::string& name : namesIn(m_pictures))
        EXPECT_EQ(name.find(".part"), std::string::npos) << name;
}

TEST_F(MisbehavingConverterTest, ASlideThatItCannotPaintFailsAlone)
{
    useScript("printf 'ready\\nopened 2\\nlaid-out 7200 5400\\nunpaintable 1 0\\npainted 2 1\\nunpaintable 1 "
              "0\\n' >&3; "
              "sleep 100");
    const std::unique_ptr<Presentation> deck = open(deckFile("deck.fodp", plainDeck("#ff0000")));
    EXPECT_THROW(deck->SaveAs(m_pictures, SaveAsFormat::png, EmbedTrueTypeFonts::yes), std::runtime_error);
    EXPECT_EQ(namesIn(m_pictures), std::set<std::string>{"Slide2.PNG"});
    EXPECT_THROW(deck->slide(1)->Export(m_pictures / "slide1.jpg", "jpg", 560, 420), std::runtime_error);
    deck->slide(2)->Export(m_pictures / "slide2.jpg", "jpg", 560, 420);
    EXPECT_TRUE(fs::exists(m_pictures / "slide2.jpg"));
}

TEST_F(MisbehavingConverterTest, NothingIsLeftInTheTemporaryFolder)
{
    const tests::TemporaryFolder temporary(tests::TemporaryFolder::Name::plain);
    // What a recorder left behind that was killed: no process has the number.
    fs::create_directories(temporary.path() / "quillora-deck-4194305-abcdef" / "profile");
    fs::create_directories(temporary.path() / "quillora-deck-of-another-kind");
    ::setenv("TMPDIR", temporary.path().c_str(), 1);
    useScript("printf 'ready\\nopened 1\\n' >&3; sleep 100");
    EXPECT_THROW(import(), std::runtime_error);
    m_application.reset();
    ::unsetenv("TMPDIR");
    EXPECT_EQ(namesIn(temporary.path()), std::set<std::string>{"quillora-deck-of-another-kind"});
}

} // namespace
} // namespace quillora::deck::libreoffice
