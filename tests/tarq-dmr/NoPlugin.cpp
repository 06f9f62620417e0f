extern "C" int GetSomethingElse();
int GetSomethingElse() { return 0; }
