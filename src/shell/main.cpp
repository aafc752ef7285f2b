// Gorvan: the program's entry. Everything happens in runGorvan().
#include "shell/program.h"

int main(int argc, char** argv)
{
    return runGorvan(argc, argv);
}
