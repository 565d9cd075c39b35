// The picture of a job: made when it is saved, shown in the list of the jobs.
#include "config/Korvanta_Utility.h"
#include "jobfiles/JobFiles.h"
#include "jobfiles/JobNames.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "platform/SafeFile.h"
#include "state/AppState.h"

namespace
{
constexpr std::int16_t CaptionFont = 15;
constexpr std::int16_t NormalFont = 15; ///< of the scenes

std::string PreviewPath(const std::string& baseName)
{
    return DataFolder() + baseName + ".bmp";
}
} // namespace

void WriteJobPreview(const std::string& baseName)
{
    MadeDataFolder();
    DrawNestPreview();
    std::string bytes;
    if (!SurfaceBitmap(Picture::Preview, AppState.Window.PreviewWidth, AppState.Window.PreviewHeight,
                       bytes)) {
        return;
    }
    WriteSecondName(PreviewPath(baseName), bytes);
    PutInPlace(PreviewPath(baseName), false); // no work is lost with a picture
}

void ShowJobPreview(Picture box, const std::string& name)
{
    const std::string baseName = BaseName(name, std::string(JobExtension));
    if (box != Picture::Preview || Trim(baseName).empty()) {
        return;
    }
    AppState.PreviewNest = FlagOff;
    AppState.PreviewJob = baseName; // who paints the box clears it when there is no such picture
}

void PreviewCaption(Picture box, int useSource)
{
    if (!PictureShown()) {
        return;
    }
    const std::string name =
        useSource < 1 ? BaseName(AppState.JobName, std::string(JobExtension)) : AppState.SourceName;
    SurfaceSetFont(box, CaptionFont, true);
    SurfaceText(box, static_cast<float>(AppState.ViewLeft), static_cast<float>(AppState.ViewTop),
                " " + name + " ", static_cast<std::uint32_t>(ColorBlue));
    SurfaceSetFont(box, NormalFont);
}
