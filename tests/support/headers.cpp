// Compiled with the headers that the test programs share.
