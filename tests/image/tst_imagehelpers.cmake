qt_add_resources(${name} "tst_imagehelpers_images"
    PREFIX "/testimages"
    BASE image/data
    FILES image/data/quadrants.png)
