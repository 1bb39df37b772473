// zorcc-describe: prints the description of every exported image function
// (core/describe.h) as JSON on standard output. Internal: built with the
// library's object code, not installed.
#include "core/describe.h"

#include <cstdio>

int main() {
    const std::string s = zor::describe::json(zor::describe::all());
    std::fwrite(s.data(), 1, s.size(), stdout);
    return 0;
}
