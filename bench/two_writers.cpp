// Two programs that change one key at a time: how many of their changes get lost, and how many overlaps are told.
//   two_writers [CHANGES]      default: 10000, of both together
// Each program changes a value of its own over and over, and with every tenth change one that both share. A change is
// lost when its program finds another value in its own than it saved last, then or at the end. Prints
// "changes, lost, conflicts reported" and the time.
#include "core/report.h"
#include "profile/key.h"
#include "stores/file_store.h"
#include "stores/store_messages.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace ostrand;

namespace {

constexpr const char16_t* kOwn[] = {u"Of the first", u"Of the second"};

struct Tally {
    unsigned lost = 0;
    unsigned conflicts = 0;
};

unsigned ReadOwn(const VProfileKey& key, size_t writer)
{
    unsigned value = 0;
    key.ReadDword(kOwn[writer], &value);
    return value;
}

Tally Change(const std::string& folder, size_t writer, unsigned changes)
{
    FileStoreFactory factory(folder);
    const VProfileStore store(false, &factory);
    VReportMessageParams report;
    Tally tally;
    for (unsigned i = 1; i <= changes; ++i) {
        VProfileKey key(store.GetRootKey(), u"Shared");
        tally.lost += ReadOwn(key, writer) == i - 1 ? 0 : 1;
        key.WriteDword(kOwn[writer], i);
        if (i % 10 == 0) {
            unsigned theirs = 0;
            key.ReadDword(u"Of both", &theirs);
            key.WriteDword(u"Of both", 2 * i + static_cast<unsigned>(writer));
        }
        report.SetMessage(0);
        while (!key.Flush(report))
            report.SetMessage(0);
        tally.conflicts += report.GetCode() == kValueConflict ? 1 : 0;
    }
    return tally;
}

} // namespace

int main(int argc, char** argv)
{
    const unsigned changes = (argc > 1 ? static_cast<unsigned>(std::strtoul(argv[1], nullptr, 10)) : 10'000u) / 2;
    std::string folder = (std::filesystem::temp_directory_path() / "two-writers-XXXXXX").string();
    int ends[2];
    if (!mkdtemp(folder.data()) || pipe(ends) != 0)
        return EXIT_FAILURE;
    const auto start = std::chrono::steady_clock::now();
    for (size_t writer = 0; writer < 2; ++writer)
        if (fork() == 0) {
            const Tally tally = Change(folder, writer, changes);
            _exit(write(ends[1], &tally, sizeof tally) == sizeof tally ? EXIT_SUCCESS : EXIT_FAILURE);
        }
    close(ends[1]);
    Tally all;
    Tally one;
    int told = 0;
    for (; read(ends[0], &one, sizeof one) == sizeof one; ++told) {
        all.lost += one.lost;
        all.conflicts += one.conflicts;
    }
    while (wait(nullptr) > 0)
        continue;
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;

    FileStoreFactory factory(folder);
    {
        const VProfileStore store(true, &factory);
        const VProfileKey key(store.GetRootKey(), u"Shared");
        for (size_t writer = 0; writer < 2; ++writer)
            all.lost += ReadOwn(key, writer) == changes ? 0 : 1;
    }
    std::filesystem::remove_all(folder);
    std::printf("%u changes, %u lost, %u conflicts reported, %.1f s\n", 2 * changes, all.lost, all.conflicts,
                time.count());
    return told == 2 && all.lost == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
