#include "cocoainitializer.h"

class CocoaInitializer::Private
{
};

CocoaInitializer::CocoaInitializer() = default;
CocoaInitializer::~CocoaInitializer() = default;
