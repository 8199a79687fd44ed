// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Contains the precompiled headers of the tests, see QUODE_PCH.
int main() {}
