// korvanta-batch: the road of one part without a window.
#include "batch/Options.h"
#include "batch/Road.h"
#include "batch/SilentScreen.h"
#include "platform/Fault.h"
#include "platform/TextFile.h"
#include "post/Korvanta_PostProcessor.h"

#include <csignal>
#include <cstdio>
#include <exception>
#include <new>

namespace
{
/// What ends the run is said in a line; an unfinished program keeps its ".part".
int EndWithFault(const char* text)
{
    ClearProgress();
    AbandonText(ProgramFile);
    std::fprintf(stderr, "korvanta-batch: %s\n", text);
    return StatusFailed;
}
} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow is a fault with a text, like a full disk
    try {
        BatchOptions options;
        int status = StatusDone;
        if (!ReadOptions(argc, argv, options, status)) {
            return status;
        }
        if (options.ListShapes) {
            return ListShapes(options);
        }
        return options.Delete.empty() ? RunRoad(options) : DeleteSavedJob(options);
    } catch (const RunTimeFault& fault) {
        return EndWithFault(fault.what());
    } catch (const std::bad_alloc&) {
        return EndWithFault("out of memory");
    } catch (
        const std::exception& error) { // the machine's own refusals, such as a working folder that is gone
        return EndWithFault(error.what());
    }
}
