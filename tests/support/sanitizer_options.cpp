// Under AddressSanitizer, a failed allocation must come back as a null
// pointer, as it does without the sanitizer: the tests check how the
// library reports running out of memory.
extern "C" __attribute__((visibility("default"), used)) const char *__asan_default_options()
{
    return "allocator_may_return_null=1";
}
