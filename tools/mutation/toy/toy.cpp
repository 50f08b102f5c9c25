/// Whether "many" has been reached; "a > b" in a comment is not an operator.
bool isMany(int count)
{
    return count > 10;
}

int countDown(int count)
{
    while (count != 0) {
        --count;
    }
    return count;
}

void greet(const char *&greeting)
{
    greeting = nullptr;
    const auto choose = [](const char *text, int) { return text; };
    greeting = choose("hello", 1);
}
