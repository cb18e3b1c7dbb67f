#include <fuzz/support/World.h>

#include <core/types/NTypes.h>
#include <fuzz/support/Check.h>

#include <QtGlobal>

#include <limits>

// Of the sanitizers' interface; an installed header may be of another compiler.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void*, std::size_t),
                                                         void (*freed)(const volatile void*));
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace {

constexpr std::size_t NO_LIMIT = std::numeric_limits<std::size_t>::max();
constexpr std::size_t BASE = 5U << 20;
constexpr std::size_t FACTOR = 64;

std::size_t largestAllowed = NO_LIMIT;
int messages = 0;

void countMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*text*/)
{
    ++messages;
}

void checkRequest(const volatile void* /*memory*/, std::size_t size)
{
    if (size > largestAllowed) {
        const bool isJustified = false;
        largestAllowed = NO_LIMIT;
        FUZZ_CHECK(isJustified);
    }
}

void ignoreFree(const volatile void* /*memory*/) {}

} // namespace

int loggedMessages()
{
    return messages;
}

MemoryLimit::MemoryLimit(std::size_t inputSize)
{
    largestAllowed = BASE + FACTOR * inputSize;
}

MemoryLimit::~MemoryLimit()
{
    largestAllowed = NO_LIMIT;
}

int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    qputenv("TZ", "Europe/Berlin"); // hours that do not exist, and hours that exist twice
    qInstallMessageHandler(countMessage);
    NTypes::registerMetaTypes();
    FUZZ_CHECK(__sanitizer_install_malloc_and_free_hooks(checkRequest, ignoreFree) != 0);
    return 0;
}
