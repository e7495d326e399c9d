// Walking the caller's stack for diagnostics, with the unwinder of the C++
// runtime (it reads the unwind tables, so it works without frame pointers),
// and formatting frames with the dynamic loader's symbol information.
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <dlfcn.h>
#include <string>
#include <unwind.h>
#include <vector>

namespace {

constexpr size_t kMaxFrames = 1024;
constexpr DWORD kWithModuleAndSymbol = 0x1;

struct Collector {
    std::vector<OSSTACKFRAME> frames;
};

_Unwind_Reason_Code CollectFrame(_Unwind_Context *context, void *data)
{
    Collector *collector = static_cast<Collector *>(data);
    if (collector->frames.size() >= kMaxFrames)
        return _URC_END_OF_STACK;
    const _Unwind_Ptr pc = _Unwind_GetIP(context);
    if (pc == 0)
        return _URC_END_OF_STACK;
    OSSTACKFRAME frame;
    frame.pc = reinterpret_cast<void *>(pc);
    frame.frame = reinterpret_cast<void *>(_Unwind_GetCFA(context));
    frame.index = 0;
    collector->frames.push_back(frame);
    return _URC_NO_REASON;
}

std::string BaseName(const char *path)
{
    const char *slash = std::strrchr(path, '/');
    return slash != nullptr ? slash + 1 : path;
}

std::string Demangled(const char *symbol)
{
    int status = -1;
    char *plain = abi::__cxa_demangle(symbol, nullptr, nullptr, &status);
    std::string name = status == 0 && plain != nullptr ? plain : symbol;
    std::free(plain);
    return name;
}

// A return address may lie just past the end of its function (a call that
// never returns), so the symbol is looked up one byte earlier, unless the
// address is exactly a symbol's start (a function address, not a return).
bool LookUpAddress(const void *pc, Dl_info &info)
{
    if (dladdr(pc, &info) != 0 && info.dli_saddr == pc)
        return true;
    const void *inside = static_cast<const char *>(pc) - 1;
    return dladdr(inside, &info) != 0;
}

std::string DescribeLocation(const void *pc)
{
    Dl_info info;
    if (!LookUpAddress(pc, info) || info.dli_fname == nullptr)
        return std::string();
    char offset[32];
    std::string text = " in ";
    text += BaseName(info.dli_fname);
    if (info.dli_sname != nullptr && info.dli_saddr != nullptr) {
        std::snprintf(offset, sizeof offset, "+0x%lx",
                      static_cast<unsigned long>(static_cast<const char *>(pc) -
                                                 static_cast<const char *>(info.dli_saddr)));
        text += " (" + Demangled(info.dli_sname) + offset + ")";
    } else {
        std::snprintf(offset, sizeof offset, " (+0x%lx)",
                      static_cast<unsigned long>(static_cast<const char *>(pc) -
                                                 static_cast<const char *>(info.dli_fbase)));
        text += offset;
    }
    return text;
}

void PrintFrame(const OSSTACKFRAME &frame)
{
    char line[1024];
    OSFormatStackFrame(line, kWithModuleAndSymbol, &frame, sizeof line);
    std::printf("%s\n", line);
}

} // namespace

// The walk first collects the frames, then reports them, so the callback
// runs outside the unwinder.  The innermost collected frame is this
// function itself and is never reported.
__attribute__((noinline)) int OSWalkStack(int skip, OSSTACKWALKPROC callback, void *context)
{
    Collector collector;
    collector.frames.reserve(64);
    _Unwind_Backtrace(CollectFrame, &collector);
    const size_t first = 1 + static_cast<size_t>(skip > 0 ? skip : 0);
    int visited = 0;
    for (size_t i = first; i < collector.frames.size(); ++i) {
        OSSTACKFRAME frame = collector.frames[i];
        frame.index = static_cast<DWORD>(i - first);
        ++visited;
        if (callback == nullptr)
            PrintFrame(frame);
        else if (callback(context, &frame) != 0)
            break;
    }
    if (callback == nullptr)
        std::fflush(stdout);
    return visited;
}

// "#3 0x7f0012345678", and with flags bit 0 " in libfoo.so (symbol+0x12)"
// (or " in libfoo.so (+0x1234)", the offset in the module, when there is no
// symbol).  Truncated to size-1 bytes and terminated.
int OSFormatStackFrame(LPSTR buffer, DWORD flags, const OSSTACKFRAME *frame, DWORD size)
{
    if (buffer == nullptr || size == 0)
        return 0;
    buffer[0] = '\0';
    if (frame == nullptr)
        return 0;
    char head[64];
    std::snprintf(head, sizeof head, "#%u 0x%lx", static_cast<unsigned>(frame->index),
                  static_cast<unsigned long>(reinterpret_cast<uintptr_t>(frame->pc)));
    std::string text = head;
    if (flags & kWithModuleAndSymbol)
        text += DescribeLocation(frame->pc);
    const size_t written = text.size() < size ? text.size() : size - 1;
    std::memcpy(buffer, text.data(), written);
    buffer[written] = '\0';
    return static_cast<int>(written);
}
