// What AddressSanitizer does otherwise in a program that runs the same code a million times: short stacks of
// allocations and little memory kept back cost half as much time. Asked by the sanitizer when a program
// starts.
extern "C" const char* __asan_default_options();

const char* __asan_default_options() {
    return "malloc_context_size=6:quarantine_size_mb=8:thread_local_quarantine_size_kb=64";
}
