extern "C" [[gnu::visibility("default")]] int emptyLibrary() {
  return 0;
}
