// Saves that fail half-way, or are cut off: under each name stands the old file or the new one, whole.
#include "jobfiles/JobFiles.h"
#include "platform/Fault.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/InputScreen.h"
#include "shell/ValueFields.h"
#include "support/RecordingSurface.h"
#include "support/Station.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <gmock/gmock.h>
#include <random>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using testing::HasSubstr;

namespace
{
namespace fs = std::filesystem;

/// The files of job A in the order of a save.
constexpr const char* Names[] = {"NC/A", "NEST/A.nst", "NEST/DATA/A.bmp", "NEST/DATA/A.drw"};
constexpr std::size_t FileCount = std::size(Names);

using Contents = std::array<std::string, FileCount>;

class SaveFailures : public StationCase
{
protected:
    Contents Old;
    Contents New;

    void SetUp() override
    {
        StationCase::SetUp();
        AppState.ExitAfterSave = FlagOff;
        Station.Write("PPR.ini", "[PartProgram_StartCUT]\nLINE1=_*RAPID_MOVE\n"); // where the lead begins
        OpenPlate(2);
        PrepareNew();
        SaveJob("A");
        New = Files();
        PrepareOld();
        SaveJob("A");
        Old = Files();
        for (std::size_t i = 0; i < FileCount; ++i) {
            ASSERT_NE(Old[i], New[i]) << Names[i];
        }
        PrepareNew();
    }

    static void PrepareOld()
    {
        Prepare(7.0, 0x0000FFU);
    }

    static void PrepareNew()
    {
        Prepare(3.0, 0xFF0000U);
    }

    static void Prepare(double lead, std::uint32_t pixel)
    {
        AppState.ProfileTable[1].LeadInLength = lead;
        AppState.TextNesting[FieldSimulation].Text = std::to_string(static_cast<int>(lead));
        Drawn.Pixel = {pixel};
    }

    Contents Files() const
    {
        Contents contents;
        for (std::size_t i = 0; i < FileCount; ++i) {
            contents[i] = Station.Read(Names[i]);
        }
        return contents;
    }

    static std::string FaultOfSave()
    {
        try {
            SaveJob("A");
        } catch (const RunTimeFault& fault) {
            return fault.what();
        }
        return "";
    }

    /// What stands before file `failed` in the order is new, that file and the others are old, no second name is left but
    /// that of a program that wasn't finished.
    void CheckFiles(std::size_t failed) const
    {
        const Contents found = Files();
        for (std::size_t i = 0; i < FileCount; ++i) {
            EXPECT_EQ(found[i], i < failed ? New[i] : Old[i]) << Names[i] << ", failed: " << Names[failed];
            if (i > 0) {
                EXPECT_FALSE(fs::exists(fs::symlink_status(Station.Path + "/" + Names[i] + ".part")));
            }
        }
    }
};

TEST_F(SaveFailures, OfAFullDiskTellTheFile)
{
    for (std::size_t i = 0; i < FileCount; ++i) {
        PrepareOld();
        SaveJob("A");
        PrepareNew();
        // The way to a device that is always full.
        fs::create_symlink("/dev/full", Station.Path + "/" + Names[i] + ".part");
        EXPECT_EQ(FaultOfSave(),
                  "Cannot write " + Station.Path + "/" + Names[i] + ": No space left on device");
        CheckFiles(i);
        fs::remove(Station.Path + "/" + Names[i] + ".part");
        SaveJob("A");
        EXPECT_EQ(Files(), New) << "when there is room again";
    }
}

/// A file system in memory over a folder of the station, as long as it lives.
struct SmallDisk {
    std::string Folder;
    bool Mounted;

    SmallDisk(std::string folder, const char* options)
        : Folder(std::move(folder)), Mounted(::mount("tmpfs", Folder.c_str(), "tmpfs", 0, options) == 0)
    {
    }
    ~SmallDisk()
    {
        if (Mounted) {
            ::umount2(Folder.c_str(), MNT_DETACH);
        }
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    /// Takes all the room but `pages`.
    void Fill(int pages) const
    {
        std::FILE* file = std::fopen((Folder + "/filler").c_str(), "wb");
        ASSERT_NE(file, nullptr);
        const std::string page(4096, 'x');
        while (std::fwrite(page.data(), 1, page.size(), file) == page.size() && std::fflush(file) == 0) {
        }
        std::fclose(file);
        fs::resize_file(Folder + "/filler", fs::file_size(Folder + "/filler") / 4096 * 4096 -
                                                4096 * static_cast<unsigned>(pages));
    }
};

TEST_F(SaveFailures, OfASmallDiskLeaveTheOldFiles)
{
    struct Case {
        const char* Folder;
        std::size_t Failed;
        int Pages;
    };
    // The geometry takes more than a page: with one left the picture finds room and the geometry doesn't.
    AppState.ElementCount = 30;
    AppState.ElementTable.resize(31);
    for (std::size_t k = 1; k <= 30; ++k) {
        AppState.ElementTable[k].Kind = k < 30 ? KindLine : KindOuterEnd;
        AppState.ElementTable[k].StartX = static_cast<double>(k % 7);
    }
    AppState.ProfileCount = 1;
    AppState.ProfileEnds.clear();
    MeasureProfiles(FlagOn);
    SaveJob("A");
    New = Files();
    for (const Case& c :
         {Case{"NC", 0, 0}, Case{"NEST", 1, 0}, Case{"NEST/DATA", 2, 0}, Case{"NEST/DATA", 3, 1}}) {
        PrepareOld();
        SaveJob("A");
        Old = Files();
        const std::string folder = Station.Path + "/" + c.Folder;
        fs::rename(folder, folder + "_kept");
        fs::create_directory(folder);
        {
            const SmallDisk disk(folder, "size=256k");
            if (!disk.Mounted) {
                GTEST_SKIP() << "no right to mount";
            }
            fs::copy(folder + "_kept", folder, fs::copy_options::recursive);
            disk.Fill(c.Pages);
            PrepareNew();
            EXPECT_EQ(FaultOfSave(),
                      "Cannot write " + Station.Path + "/" + Names[c.Failed] + ": No space left on device");
            CheckFiles(c.Failed);
        }
        fs::remove_all(folder);
        fs::rename(folder + "_kept", folder);
    }
}

TEST_F(SaveFailures, OfAReadOnlyFolderLeaveTheOldFiles)
{
    for (const std::size_t failed : {0U, 1U, 2U}) {
        PrepareOld();
        SaveJob("A");
        PrepareNew();
        const std::string folder = fs::path(Station.Path + "/" + Names[failed]).parent_path();
        if (::geteuid() == 0) { // nothing is forbidden to the superuser but what is mounted so
            if (::mount(folder.c_str(), folder.c_str(), nullptr, MS_BIND, nullptr) != 0 ||
                ::mount(nullptr, folder.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) != 0) {
                GTEST_SKIP() << "no right to mount";
            }
        } else {
            fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
        }
        const std::string fault = FaultOfSave();
        if (::geteuid() == 0) {
            ::umount2(folder.c_str(), MNT_DETACH);
        } else {
            fs::permissions(folder, fs::perms::owner_all);
        }
        EXPECT_THAT(fault, HasSubstr("Cannot write " + Station.Path + "/" + Names[failed] + ": "));
        CheckFiles(failed);
    }
}

TEST_F(SaveFailures, OfALimitOnFilesLeaveTheOldFiles)
{
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tiny = {New[3].size() - 1, before.rlim_max}; // of the four the geometry is the longest
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tiny), 0);
    const std::string fault = FaultOfSave();
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(fault, "Cannot write " + Station.Path + "/NEST/DATA/A.drw: File too large");
    CheckFiles(3);
}

TEST_F(SaveFailures, OfAFolderOfThatNameTellTheFile)
{
    for (const std::size_t failed : {1U, 2U, 3U}) {
        const std::string path = Station.Path + "/" + Names[failed];
        fs::remove(path);
        fs::create_directory(path);
        EXPECT_EQ(FaultOfSave(), "Cannot write " + path + ": Is a directory");
        EXPECT_FALSE(Station.Holds(std::string(Names[failed]) + ".part"));
        fs::remove(path);
        Station.Write(Names[failed], Old[failed]);
    }
}

TEST_F(SaveFailures, OfAFolderThatCantBeMadeTellIt)
{
    fs::remove_all(Station.Path + "/NEST/DATA");
    Station.Write("NEST/DATA", "a file");
    EXPECT_THAT(FaultOfSave(), HasSubstr(Station.Path + "/NEST/DATA"));
    EXPECT_EQ(Station.Read("NEST/A.nst"), New[1]);
    fs::remove_all(Station.Path + "/NEST");
    SaveJob("A");
    EXPECT_EQ(Files(), New) << "missing folders are made";
}

TEST_F(SaveFailures, WithoutAPainterLeaveTheOldPicture)
{
    Drawn.Paints = false;
    SaveJob("A");
    const Contents found = Files();
    EXPECT_EQ(found, (Contents{New[0], New[1], Old[2], New[3]}));
}

TEST_F(SaveFailures, AFinishedSaveLeavesNothingElse)
{
    std::vector<std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Station.Path + "/NEST")) {
        files.push_back(entry.path().filename());
    }
    EXPECT_THAT(files, testing::UnorderedElementsAre("A.nst", "DATA", "A.bmp", "A.drw"));
    EXPECT_FALSE(Station.Holds("NC/A.part"));
}

TEST_F(SaveFailures, ANameInAnotherCaseIsTheSameJob)
{
    fs::rename(Station.Path + "/NEST/A.nst", Station.Path + "/NEST/a.Nst");
    fs::rename(Station.Path + "/NEST/DATA/A.drw", Station.Path + "/NEST/DATA/a.DRW");
    SaveJob("A");
    EXPECT_EQ(Files(), New);
    EXPECT_FALSE(Station.Holds("NEST/a.Nst"));
    EXPECT_FALSE(Station.Holds("NEST/DATA/a.DRW"));
    // Two jobs whose names differ by case only, as another system may leave them: each comes by its own name.
    Station.Write("NEST/a.nst", "[0000]\nVL=3.00\n[0002]\nV0=33\n");
    LoadJob("A");
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "0");
    LoadJob("a");
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "33");
}

TEST_F(SaveFailures, CutOffAtAnyMomentLeaveWholeFiles)
{
    constexpr int Kills = 200;
    const auto start = std::chrono::steady_clock::now();
    SaveJob("A");
    const auto save =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    // Most moments lie within the first save; the child is slower than this process on a busy machine, and so some lie far
    // behind it.
    constexpr std::chrono::microseconds Longest{8000};
    constexpr int LateEach = 10;
    std::mt19937 random(11);
    std::array<int, 2> seen{};
    for (int kill = 0; kill < Kills; ++kill) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (;;) {
                PrepareNew();
                SaveJob("A");
                PrepareOld();
                SaveJob("A");
            }
        }
        const auto span = kill % LateEach == 0 ? 4 * save : std::min(save, Longest);
        ::usleep(static_cast<useconds_t>(random() % static_cast<unsigned>(span.count())));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const Contents found = Files();
        for (std::size_t i = 0; i < FileCount; ++i) {
            ASSERT_TRUE(found[i] == Old[i] || found[i] == New[i]) << Names[i];
            ++seen[found[i] == New[i] ? 1U : 0U];
        }
    }
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
}
} // namespace
