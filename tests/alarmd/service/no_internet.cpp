// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Runs a program that is killed (signal SYS) as soon as it asks for a socket of the internet or of another network.
//   no_internet PROGRAM [ARGUMENT...]
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <stddef.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>
#include <iterator>

namespace {

// Of the system calls for sockets only those for AF_UNIX are let through. Of all others, only those of this machine's
// own set, lest one asks for a socket in another way.
bool forbidNetworks() {
    sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_socket, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[0])),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, AF_UNIX, 1, 0),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{static_cast<unsigned short>(std::size(filter)), filter};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    if (!forbidNetworks()) {
        std::perror("no_internet");
        return 3;
    }
    execv(argv[1], argv + 1);
    std::perror(argv[1]);
    return 4;
}
