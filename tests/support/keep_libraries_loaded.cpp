// Linked into window tests of sanitizer builds only. The display libraries leak by themselves and are
// unloaded before the leaks are looked for, which then show no module's name and escape
// tests/support/leaks.txt. Kept loaded, they are named.
extern "C" int dlclose(void* /*library*/) {
    return 0;
}
