int x35;
