#include <cstring>

bool isMany(int count);
int countDown(int count);
void greet(const char *&greeting);

/// Does not test the boundary of isMany(): some of its mutants survive.
int main()
{
    const char *greeting = nullptr;

    greet(greeting);
    return isMany(20) && !isMany(1) && countDown(3) == 0 && greeting && std::strcmp(greeting, "hello") == 0 ? 0 : 1;
}
