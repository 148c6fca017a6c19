// What the start of any C++ program takes: the C++ library is loaded and its streams are made ready.
//
//   empty

#include <iostream>

int main() {}
