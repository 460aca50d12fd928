#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QTranslator>

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

/// Defined by each target: does with bytes from outside what the program does with them.
void take(const QByteArray& bytes);

namespace pelorin::fuzz {

/// Ends the target with a finding unless something holds.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Some text for every number: a fault without one is none.
struct AnyText final : QTranslator
{
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char*, const char*, int) const override
    {
        return QStringLiteral("text %1 %2 %3");
    }
};

/// A file without a place in a folder.
class File
{
public:
    explicit File(const QByteArray& content) : m_fd(memfd_create("fuzz", MFD_CLOEXEC))
    {
        require(write(m_fd, content.constData(), static_cast<std::size_t>(content.size())) ==
                content.size());
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { (void)close(m_fd); }

    [[nodiscard]] QString path() const { return QStringLiteral("/proc/self/fd/%1").arg(m_fd); }

private:
    const int m_fd;
};

} // namespace pelorin::fuzz

// Each target has one source file, so that this is there once.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int count = 1;
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    static const QCoreApplication application(count, arguments);
    static pelorin::fuzz::AnyText texts;
    static const bool isInstalled = QCoreApplication::installTranslator(&texts);
    pelorin::fuzz::require(isInstalled);
    take(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
