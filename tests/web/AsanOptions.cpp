// Chromium, inside Qt WebEngine, frees some objects through a base of another size (its own
// sized deletes, in code this build did not compile). AddressSanitizer's new/delete type check
// stops the program there, so this test program turns that one check off; every other check
// stays on, and ASAN_OPTIONS can still set it.
extern "C" const char* __asan_default_options()
{
    return "new_delete_type_mismatch=0";
}
