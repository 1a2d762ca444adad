// SPDX-License-Identifier: MIT
// The page of maps in a real browser.
#ifndef _WIN32

#include <cstdlib>
#include <string>
#include <tests/cli/Program.h>

namespace Tarnex::Test {

namespace {

// What the script appended to a page under test tells: whether a layer's groups are shown before
// and after its box is ticked off, and how many files the page asked for.
constexpr const char* kProbe = R"(<script>
const shown = () => getComputedStyle(document.querySelector('.layer-container')).display;
const before = shown();
document.getElementById('show-container').click();
const after = shown();
const other = getComputedStyle(document.querySelector('.layer-rooms')).display;
const loaded = performance.getEntriesByType('resource').length;
const fill = getComputedStyle(document.querySelector('.defs .container')).fill;
document.title = ['result', before, after, other, loaded, fill].join(' ');
</script>)";

class HtmlMapTest : public ProgramTest {
protected:
    void SetUp() override {
        if (std::system("command -v chromium >/dev/null 2>&1") != 0) {
            GTEST_SKIP() << "chromium is not installed; scripts/setup installs it";
        }
        ASSERT_EQ(Run({"map", "--seed", "7", "--levels", "2", "--html", "page.html"}).status, 0);
    }

    // The page as the browser holds it; what it logs goes into log.txt.
    std::string Dom(const std::string& page) const {
        const Outcome outcome = RunAfter(
            "chromium --headless --no-sandbox --disable-gpu --disable-background-networking "
            "--disable-component-update --no-first-run --enable-logging=stderr "
            "--user-data-dir=\"$PWD/profile\" --dump-dom \"file://$PWD/" +
                page + "\" >dom.txt 2>log.txt",
            {"--version"});
        EXPECT_EQ(outcome.status, 0);
        return Read("dom.txt");
    }
};

TEST_F(HtmlMapTest, TheBrowserHasNothingToComplainOf) {
    EXPECT_TRUE(Contains(Dom("page.html"), "<h2>dungeon, Level 2</h2>"));
    EXPECT_FALSE(Contains(Read("log.txt"), "CONSOLE")) << Read("log.txt");
}

TEST_F(HtmlMapTest, LayersAreSwitchedAndNothingIsLoaded) {
    std::string page = Read("page.html");
    const std::size_t policy = page.find("<meta http-equiv=\"Content-Security-Policy\"");
    ASSERT_NE(policy, std::string::npos);
    page.erase(policy,
               page.find('\n', policy) - policy); // it forbids scripts, that of the test too
    page.insert(page.find("</body>"), kProbe);
    Write("probed.html", page);
    EXPECT_TRUE(
        Contains(Dom("probed.html"), "<title>result inline none inline 0 rgb(224, 164, 0)</title>"))
        << Read("dom.txt").substr(0, 600);
}

TEST_F(HtmlMapTest, ThePolicyLetsNothingRun) {
    std::string page = Read("page.html");
    page.insert(page.find("</body>"), kProbe);
    Write("probed.html", page);
    EXPECT_TRUE(Contains(Dom("probed.html"), "<title>dungeon</title>"));
    EXPECT_TRUE(Contains(Read("log.txt"), "CONSOLE"));
}

} // namespace

} // namespace Tarnex::Test

#else

#include <tests/support/LeftOut.h>

VAULTRY_LEFT_OUT_ON_WINDOWS(HtmlMapTest, "looks at the page in a browser of Linux")

#endif
