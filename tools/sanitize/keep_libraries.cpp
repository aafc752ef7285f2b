// Linked into every program of the sanitizer build only. Libraries that the
// GL driver and GLFW open at run time are closed again before the leak check
// runs at exit, and then the checker cannot name them, so no suppression can
// match their memory. Here closing does nothing: every library stays loaded
// to the end and its leaks are matched by name in lsan.supp.
extern "C" int dlclose(void*) { return 0; }
