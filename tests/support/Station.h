// Station.h -- a station folder for cases of the shell: catalogue, settings, folders with a few files.
#pragma once

#include "shell/Korvanta_Interface.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// The station is started in English; message n is "text n". A plate of 100 x 50 with a slot lies in NC, and with
/// nothing to cut "empty.iso".
class StationCase : public testing::Test
{
protected:
    TempFolder Station;

    void SetUp() override
    {
        StartCase();
        std::string catalogue = ">>0\nA\nA\nA\nA\nA\nU\n";
        for (int number = 1; number <= 38; ++number) {
            catalogue += ">>" + std::to_string(number) + "\n";
            for (int language = 1; language <= LanguageColumns; ++language) {
                catalogue += "text " + std::to_string(number) + (language == 1 ? "" : " other") + "\n";
            }
        }
        Station.Write("Korvanta_MSG.TXT", "\xEF\xBB\xBF" + catalogue);
        Configure("", "");
        Station.Write("NC/plate.iso", "G0 X40 Y20\nG1 X60\nY30\nX40\nY20\nG0 X0 Y0\nG1 X100\nY50\nX0\nY0\n");
        Station.Write("NC/empty.iso", "M30\n");
        StartStation(Station.Path, 1);
        TakeCalls();
    }

    /// Keys of SETUP and of CONFIG beside the folders.
    void Configure(const std::string& setup, const std::string& config) const
    {
        Station.Write("Korvanta.ini", "[SETUP]\n" + setup + "[CONFIG]\nNC_PATH=" + Station.Path +
                                          "\\NC\nDXF_PATH=" + Station.Path +
                                          "\\DXF\nNESTING_PATH=" + Station.Path + "\\NEST\n" + config);
    }

    static std::vector<std::string> TakeCalls()
    {
        std::vector<std::string> calls;
        calls.swap(Screen.Calls);
        return calls;
    }

    /// An imported part on the screen of a CAM tab.
    static void OpenPlate(std::int16_t tab)
    {
        ASSERT_TRUE(OpenImport(ImportKind::Program, "plate.iso"));
        for (std::int16_t at = 0; at < tab; ++at) {
            NextCamTab();
        }
        TakeCalls();
    }

    static std::vector<std::string> Texts(std::int16_t tab)
    {
        std::vector<std::string> texts;
        for (const ListItem& item : AppState.Lists[static_cast<std::size_t>(tab)].Items) {
            texts.push_back(item.Text);
        }
        return texts;
    }
};
