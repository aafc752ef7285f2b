// Gorvan: the program's entry. Everything happens in runGorvan().
#include "shell/program.h"

int main(int, char**)
{
    return runGorvan();
}
