// Holds nothing: the library gives every test program GoogleTest's own main and one precompiled
// copy of its headers.
