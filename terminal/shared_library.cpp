// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// libquode-core.so is made of the rooms' archives; CMake wants a source of its own for it.
