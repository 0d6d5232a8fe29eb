#include "deck/platform/libreoffice/converter/confinement.h"

#include <seccomp.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>

namespace quillora::deck::libreoffice {

namespace {

constexpr rlim_t kMebibyte = 1024 * 1024;
/// The largest deck that was measured took 282 MiB; one that needs more than this is a bomb.
constexpr rlim_t kMemory = 2048 * kMebibyte;
constexpr rlim_t kFileSize = 512 * kMebibyte;
/// Far beyond what the recorder waits for: it only ends what the recorder has lost sight of.
constexpr rlim_t kProcessorSeconds = 3600;

void limit(__rlimit_resource resource, rlim_t most)
{
    rlimit values{};
    if (::getrlimit(resource, &values) != 0)
        return;
    values.rlim_cur = std::min(most, values.rlim_max);
    values.rlim_max = values.rlim_cur;
    ::setrlimit(resource, &values);
}

void limitResources()
{
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_FSIZE, kFileSize);
    limit(RLIMIT_CPU, kProcessorSeconds);
#ifndef __SANITIZE_ADDRESS__
    // The address sanitizer reserves terabytes that count as data.
    limit(RLIMIT_DATA, kMemory);
#endif
    // A file that would grow too large is a failed write, not a killed process.
    ::signal(SIGXFSZ, SIG_IGN);
}

void refuse(scmp_filter_ctx filter, int call) { seccomp_rule_add(filter, SCMP_ACT_ERRNO(EPERM), call, 0); }

void filterSystemCalls()
{
    const std::unique_ptr<void, decltype(&seccomp_release)> filter(seccomp_init(SCMP_ACT_ALLOW),
                                                                   &seccomp_release);
    if (filter == nullptr)
        return;
    for (const int call : {SCMP_SYS(execve),
                           SCMP_SYS(execveat),
                           SCMP_SYS(fork),
                           SCMP_SYS(vfork),
                           SCMP_SYS(ptrace),
                           SCMP_SYS(process_vm_readv),
                           SCMP_SYS(process_vm_writev),
                           SCMP_SYS(mount),
                           SCMP_SYS(umount2),
                           SCMP_SYS(pivot_root),
                           SCMP_SYS(chroot),
                           SCMP_SYS(unshare),
                           SCMP_SYS(setns),
                           SCMP_SYS(bpf),
                           SCMP_SYS(keyctl),
                           SCMP_SYS(add_key),
                           SCMP_SYS(request_key),
                           SCMP_SYS(perf_event_open),
                           SCMP_SYS(userfaultfd),
                           SCMP_SYS(io_uring_setup),
                           SCMP_SYS(kexec_load),
                           SCMP_SYS(init_module),
                           SCMP_SYS(finit_module),
                           SCMP_SYS(kill),
                           SCMP_SYS(tkill),
                           SCMP_SYS(pidfd_open)})
        refuse(filter.get(), call);
    // Threads are made by clone() with CLONE_THREAD, processes without. What clone3() is told lies in memory,
    // out of a filter's sight; said to be missing, the C library falls back to clone().
    constexpr scmp_datum_t kCloneThread = 0x00010000;
    seccomp_rule_add(filter.get(), SCMP_ACT_ERRNO(EPERM), SCMP_SYS(clone), 1,
                     SCMP_A0(SCMP_CMP_MASKED_EQ, kCloneThread, 0));
    seccomp_rule_add(filter.get(), SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3), 0);
    // Every socket but a local one: font and name services fall back to files.
    seccomp_rule_add(filter.get(), SCMP_ACT_ERRNO(EACCES), SCMP_SYS(socket), 1,
                     SCMP_A0(SCMP_CMP_NE, AF_UNIX));
    seccomp_load(filter.get());
}

} // namespace

bool confine(int watched)
{
    if (watched != 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        // It may have ended before the request was made.
        if (::getppid() != watched)
            return false;
    }
    limitResources();
    filterSystemCalls();
    return true;
}

} // namespace quillora::deck::libreoffice
