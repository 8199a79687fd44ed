// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Carries the precompiled headers of the tests, see QUODE_PCH.
int main() {}
