Fuso=23
Zona=K
Elipsoide=18 - GRS 1980
Unidade=metros
