package com.evelko.BarcodeLibNativePackage;

import android.app.Activity;

/** Stands in for the host's loader: keeps what the native performer hands it. */
public class LibLoader {
    public static LibLoader last;
    public static boolean refuse;

    public final Activity activity;
    public final long performer;
    public boolean loaded;

    public LibLoader(Activity activity, long performer) {
        if (refuse) {
            throw new IllegalStateException("LibLoader refused");
        }
        this.activity = activity;
        this.performer = performer;
        last = this;
    }

    public void load() { loaded = true; }
}
