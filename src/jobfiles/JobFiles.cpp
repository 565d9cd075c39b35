// The order of a save and of a load.
#include "jobfiles/JobFiles.h"

#include "config/Korvanta_Utility.h"
#include "jobfiles/JobNames.h"
#include "post/Korvanta_PostProcessor.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Korvanta_Develop.h"
#include "shell/ValueFields.h"
#include "state/AppState.h"

namespace
{
constexpr const char* DataFolderName = "DATA\\";
constexpr double StartMoveStep = 10.0;

/// What the texts of the fields stand for besides: the step of the leads, and no entry that still waits to be applied.
void TakeFieldTexts()
{
    const double step = FieldNumber(AppState.TextCutting[FieldMoveStep]);
    AppState.MoveStep = step > 0.0 ? step : StartMoveStep;
    AppState.SheetFieldChanged = FlagOff;
    AppState.NestFieldTouched = FlagOff;
}
} // namespace

std::string JobFileName(const std::string& name)
{
    return Contains(LowerCase(name), JobExtension) ? name : name + std::string(JobExtension);
}

std::string AheadOfExtension(const std::string& file)
{
    return file.substr(0, LowerCase(file).find(JobExtension));
}

std::string DataFolder()
{
    return AppState.NestingPath + DataFolderName;
}

std::string MadeDataFolder()
{
    NormalisePath(DataFolder());
    return DataFolder();
}

void SaveJob(const std::string& name)
{
    const std::string file = JobFileName(name);
    const std::string baseName = BaseName(file, std::string(JobExtension));
    GenerateProgram(baseName, OldFile::Stays); // asks for the answers that are stored below
    WriteJobHeader(file);
    WriteCuttingSection(file);
    WriteNestingSection(file);
    WritePostInputSection(file);
    PutJobText(file);
    WriteJobPreview(baseName);
    WriteDrawingElements(file);
    WriteDrawingProfiles(file);
}

void LoadJob(const std::string& name)
{
    const std::string file = JobFileName(name);
    ClearPart();
    ClearImportAccount(); // an earlier import has no say in this part
    ReadJobHeader(file);
    ReadCuttingSection(file);
    ReadNestingSection(file);
    TakeFieldTexts();
    ReadDrawingProfiles(file);
    ReadDrawingElements(file);
    AdoptShape();
    AppState.CurrentProfile = AppState.ProfileCount > 0 ? 1 : 0;
    AppState.KeepLeadData = FlagOn;
    AppState.DevelopedShape = AppState.ShapeId;
    ApplyTransform(NoValue, -1, -1.0, FlagOff);
}
