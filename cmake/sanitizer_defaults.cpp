// Part of every program of a sanitizer build. The sanitizers and the dynamic loader call these, by
// names of theirs.
// NOLINTBEGIN(readability-identifier-naming)

extern "C" {
const char* __ubsan_default_options()
{
    return "print_stacktrace=1";
}

// System libraries keep what they allocate once, and the software renderer a megabyte of each
// context. What matches is the place of the allocation, and it is theirs; only what fontconfig
// makes could also be ours to give back, and one file alone asks it for anything.
const char* __lsan_default_suppressions()
{
    return "leak:libdbus-1.so\n"
           "leak:libfontconfig.so\n"
           "leak:swrast_dri.so\n";
}

const char* __lsan_default_options()
{
    return "print_suppressions=0";
}

// The software renderer draws, and Pango asks fontconfig, on threads of their own, with locks that
// are not seen. None of our other threads may go near them, so a race of ours never has one of them
// on a stack.
const char* __tsan_default_suppressions()
{
    return "race:libfontconfig.so\n"
           "race:swrast_dri.so\n";
}

const char* __asan_default_options()
{
    return "detect_stack_use_after_return=1";
}

// A graphics driver keeps its own in global variables; once it is unloaded that looks like leaks
// of an unknown module. So nothing is unloaded.
int dlclose(void*)
{
    return 0;
}
}

// NOLINTEND(readability-identifier-naming)
