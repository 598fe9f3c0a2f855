// placeholder until the string helpers land
