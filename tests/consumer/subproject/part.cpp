int wholeNumber()
{
    return 31;
}
