// SPDX-License-Identifier: MIT
// Part of every test program: what is ignored or held back by whoever started it (a background job
// ignores Ctrl-C, nohup a closed terminal, some services broken pipes or the end of a child) would
// be inherited by the programs under test, which rightly leave it so.
#ifndef _WIN32

#include <csignal>
#include <initializer_list>

namespace Tarnex::Test {

namespace {

const bool kSignalsAreUsual = [] {
    for (const int number :
         {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGCHLD, SIGALRM, SIGXFSZ}) {
        std::signal(number, SIG_DFL);
    }
    sigset_t none;
    sigemptyset(&none);
    return sigprocmask(SIG_SETMASK, &none, nullptr) == 0;
}();

} // namespace

} // namespace Tarnex::Test

#endif
