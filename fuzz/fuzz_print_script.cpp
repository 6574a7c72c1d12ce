// The print script: whatever stands in the file, pages come out of it, the same ones by every way.

#include "fuzz/fuzz_input.h"

#include "tools/paper/print_script.h"

#include <cmath>

using namespace hotel;
using namespace hotel::fuzz;

namespace {

constexpr int kMostPages = 50; // enough of them; each is read several times

void PagesAreFoundInSteps(const QByteArray& text, int pages) {
    PrintScript script(text);
    int found = 0;
    while (script.walkOn(7)) {
        Require(script.pagesFound() >= found, "a page found stays found");
        found = script.pagesFound();
    }
    Require(script.pagesFound() == pages, "steps find the pages that one walk finds");
}

void TextsStandOnImaginablePaper(const PrintPage& page) {
    for (const PrintItem& item : page) {
        if (const auto* text = std::get_if<PrintedText>(&item)) {
            Require(std::isfinite(text->at.x()) && std::isfinite(text->at.y()),
                    "a place is finite");
            Require(text->font.size > 0 && text->font.size <= 1000, "a font can be made");
            Require(!text->text.contains(u'\n'), "a text is one line");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray text = Bytes(data, size).toByteArray();
    PrintScript script(text);
    const int pages = script.pageCount();
    Require(script.hasPage(pages) == (pages > 0) && !script.hasPage(pages + 1),
            "the last page is the last");
    PagesAreFoundInSteps(text, pages);

    const int last = qMin(pages, kMostPages);
    for (int page = 1; page <= last; ++page) {
        TextsStandOnImaginablePaper(script.previewPage(page));
        PrintScript opened(text);
        Require(opened.previewPage(page) == script.previewPage(page),
                "a page looks the same whenever it is asked for");
    }

    int sheets = 0;
    script.printPages(1, last, [&](const PrintPage& page) {
        TextsStandOnImaginablePaper(page);
        ++sheets;
        return true;
    });
    Require((sheets > 0) == (pages > 0), "pages need a sheet");
    return 0;
}
